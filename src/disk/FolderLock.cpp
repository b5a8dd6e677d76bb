#include "FolderLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace nookle {

namespace {

inline constexpr const char* fileName = ".lock";

/// Whether `file` is still the lock file of the folder.
[[nodiscard]] bool isLockOf(int folder, int file)
{
    struct stat named {};
    struct stat opened {};
    return ::fstatat(folder, fileName, &named, AT_SYMLINK_NOFOLLOW) == 0 && ::fstat(file, &opened) == 0
        && named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

[[nodiscard]] QString lastError()
{
    return QString::fromStdString(std::generic_category().message(errno));
}

} // namespace

FolderLock::FolderLock(QByteArray path)
    : m_path(std::move(path))
{
}

FolderLock::State FolderLock::take()
{
    const FileDescriptor folder(::open(m_path.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen()) {
        m_error = lastError();
        return errno == ENOENT ? State::noFolder : State::impossible;
    }
    // The held file is not opened again: some file systems give up a lock when any descriptor of its file is closed.
    if (m_file.isOpen() && isLockOf(folder.get(), m_file.get()))
        return State::held;
    FileDescriptor file(
        ::openat(folder.get(), fileName, O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, S_IRUSR | S_IWUSR));
    if (!file.isOpen()) {
        m_error = lastError();
        return State::impossible;
    }
    if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        m_error = lastError();
        return errno == EWOULDBLOCK ? State::heldByOther : State::impossible;
    }
    m_file = std::move(file);
    return State::held;
}

} // namespace nookle
