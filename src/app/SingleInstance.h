#pragma once

#include <QLocalServer>
#include <QObject>
#include <QStringList>
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
        /// Another one has it, and has done what was asked for.
        doneByOther,
        /// Another one has it, and does not answer.
        otherIsSilent,
    };

    explicit SingleInstance(const QUrl& dataFolder);

    /// Claims the folder; or asks the program that has it to add the files and pages of `uris`, which hold no white
    /// space, or to show its shelf when there are none. Waits at most a few seconds for it.
    [[nodiscard]] Claim claim(const QStringList& uris = {});

    /// The name of the address.
    [[nodiscard]] QString address() const { return m_name; }

    /// Another start asks to show the shelf. Set by the owner.
    std::function<void()> onShowRequested;

    /// Another start asks to add something. Set by the owner.
    std::function<void(const QStringList& uris)> onAddRequested;

private:
    void answerRequests();
    void answer(QLocalSocket& socket);
    /// False for what is no request.
    [[nodiscard]] bool fulfil(const QByteArray& request) const;

    QString m_name;
    QLocalServer m_server;
};

} // namespace nookle
