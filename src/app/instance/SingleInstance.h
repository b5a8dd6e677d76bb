#pragma once

#include "Failure.h"
#include "FileDescriptor.h"
#include "FolderLock.h"
#include "RequestServer.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <optional>

namespace nookle {

/// Ensures that only one instance of the program uses a data folder. The first instance that claims the folder locks
/// it, and answers later instances of its session through a socket in the session's runtime folder. Main thread only.
class SingleInstance final : public QObject {
    Q_OBJECT

public:
    enum class Claim {
        /// This instance may use the folder.
        granted,
        /// Another instance has the folder, and has fulfilled the request.
        doneByOther,
        /// Another instance has the folder, and has not added what it was asked to; `refusal` says why.
        refusedByOther,
        /// Another instance has the folder, and does not answer.
        otherIsSilent,
    };

    /// `runtimeFolder` is used only if no other user can access it. Without it there is no socket, and only the
    /// folder's lock decides.
    SingleInstance(const QUrl& dataFolder, const QByteArray& runtimeFolder);

    /// Claims the folder. If another instance has it, asks that one to add the files and pages in `uris`, or to show
    /// its shelf if `uris` is empty. Addresses in `uris` contain no white space. Waits a few seconds for an answer.
    /// Does not make the data folder.
    [[nodiscard]] Claim claim(const QStringList& uris = {});

    /// Why the other instance has added nothing, in the words that it had for its user.
    [[nodiscard]] const QString& refusal() const { return m_refusal; }

    /// Claims the data folder again: it may have been made or replaced since `claim` was granted. If another instance
    /// has claimed it first, this call and all later ones fail, because the folder's content belongs to that instance.
    [[nodiscard]] std::optional<Failure> claimFolder();

    /// The path of the socket, valid in this process.
    [[nodiscard]] QString address() const;

    /// Called when a later instance asks to show the shelf. Set by the owner.
    std::function<void()> onShowRequested;

    /// Called when a later instance asks to add something, which is told of a failure. While it is not set, such a
    /// request is not answered. Set by the owner.
    std::function<std::optional<Failure>(const QStringList& uris)> onAddRequested;

    /// Called when another instance has claimed the data folder after all. Set by the owner.
    std::function<void()> onFolderLost;

private:
    [[nodiscard]] FolderLock::State lockFolder();
    [[nodiscard]] bool lock();
    [[nodiscard]] bool lockSession();
    void listen();
    /// What the answer of the other instance means.
    [[nodiscard]] Claim claimAnswered(const QByteArray& answer);
    /// Fulfils a request and returns the answer; empty if `request` is not a valid one.
    [[nodiscard]] QByteArray answer(const QByteArray& request) const;

    QByteArray m_name;
    QByteArray m_dataFolder;
    FolderLock m_folderLock;
    bool m_hasToldOfLock = false;
    bool m_isFolderLost = false;
    QString m_refusal;
    FileDescriptor m_runtimeFolder;
    FileDescriptor m_sessionLock;
    RequestServer m_server;
};

} // namespace nookle
