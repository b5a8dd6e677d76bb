#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QString>

namespace nookle {

/// An advisory lock on a folder, which keeps out other programs that take the same lock. The lock is on a file in the
/// folder, which it creates for the user alone: whoever can open a folder can lock it. It ends with this object, or
/// with the program, even after a crash. The file stays. Main thread only.
class FolderLock {
public:
    enum class State {
        held,
        /// The folder does not exist yet.
        noFolder,
        heldByOther,
        /// The file system does not support locks, or the folder cannot be opened.
        impossible,
    };

    explicit FolderLock(QByteArray path);

    /// Locks the folder unless this object holds its lock already. If another folder has replaced the locked one, locks
    /// the new folder. Never waits.
    [[nodiscard]] State take();

    /// The reason why `take` last returned `impossible`.
    [[nodiscard]] const QString& error() const { return m_error; }

private:
    QByteArray m_path;
    FileDescriptor m_file;
    QString m_error;
};

} // namespace nookle
