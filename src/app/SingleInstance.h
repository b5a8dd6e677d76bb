#pragma once

#include <QLocalServer>
#include <QObject>
#include <QUrl>

#include <functional>

namespace nookle {

/// Keeps a second program away from a data folder: the first that claims it answers to an address made from the folder,
/// which the kernel gives to one process only and takes back when that process ends, however it ends. Main thread only.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    enum class Claim {
        /// The folder is this program's now.
        granted,
        /// Another one has it, and shows its shelf.
        shownByOther,
        /// Another one has it, and does not answer.
        otherIsSilent,
    };

    explicit SingleInstance(const QUrl& dataFolder);

    /// Claims the folder, or asks the program that has it to show its shelf. Waits at most a few seconds for it.
    [[nodiscard]] Claim claim();

    /// Another start asks to show the shelf. Set by the owner.
    std::function<void()> onShowRequested;

private:
    void answerRequests();

    QString m_name;
    QLocalServer m_server;
};

} // namespace nookle
