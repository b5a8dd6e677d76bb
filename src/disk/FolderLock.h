#pragma once

#include "FileDescriptor.h"

#include <QByteArray>
#include <QString>

namespace nookle {

/// Keeps other programs that ask for the same lock away from a folder. The lock is on the folder itself, makes no file,
/// and ends with this object or with the program, however that ends. Main thread only.
class FolderLock {
public:
    enum class State {
        held,
        /// There is no folder yet.
        noFolder,
        heldByOther,
        /// The file system knows no locks, or the folder cannot be opened.
        impossible,
    };

    explicit FolderLock(QByteArray path);

    /// Locks the folder unless that has been done. Another folder that has taken the place of the one that is locked
    /// is locked too. Never waits.
    [[nodiscard]] State take();

    /// Why the last answer was `impossible`.
    [[nodiscard]] const QString& error() const { return m_error; }

private:
    QByteArray m_path;
    FileDescriptor m_folder;
    QString m_error;
};

} // namespace nookle
