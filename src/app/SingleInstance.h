#pragma once

#include "Failure.h"
#include "FileDescriptor.h"
#include "FolderLock.h"

#include <QLocalServer>
#include <QObject>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <optional>

namespace nookle {

/// Keeps a second program away from a data folder: the first one that claims it locks the folder, and answers to the
/// others of its session through a socket in the session's runtime folder. Main thread only.
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

    /// `runtimeFolder` is used only if it is the user's alone. Without it nobody is asked, and the lock alone decides.
    SingleInstance(const QUrl& dataFolder, const QByteArray& runtimeFolder);

    /// Claims the folder; or asks the program that has it to add the files and pages of `uris`, which hold no white
    /// space, or to show its shelf when there are none. Waits at most a few seconds for it. Makes no data folder.
    [[nodiscard]] Claim claim(const QStringList& uris = {});

    /// Claims a data folder that may have come, or come anew, since the claim was granted. Once another program had it
    /// first, the answer stays a failure: what is in it is not this program's.
    [[nodiscard]] std::optional<Failure> claimFolder();

    /// Where this process reaches the socket.
    [[nodiscard]] QString address() const;

    /// Another start asks to show the shelf. Set by the owner.
    std::function<void()> onShowRequested;

    /// Another start asks to add something. Set by the owner.
    std::function<void(const QStringList& uris)> onAddRequested;

    /// The data folder is another program's after all. Set by the owner.
    std::function<void()> onFolderLost;

private:
    [[nodiscard]] FolderLock::State lockFolder();
    [[nodiscard]] bool lock();
    [[nodiscard]] bool lockSession();
    void listen();
    void answerRequests();
    void answer(QLocalSocket& socket);
    /// False for what is no request.
    [[nodiscard]] bool fulfil(const QByteArray& request) const;

    QByteArray m_name;
    QByteArray m_dataFolder;
    FolderLock m_folderLock;
    bool m_hasToldOfLock = false;
    bool m_isFolderLost = false;
    FileDescriptor m_runtimeFolder;
    FileDescriptor m_sessionLock;
    QLocalServer m_server;
};

} // namespace nookle
