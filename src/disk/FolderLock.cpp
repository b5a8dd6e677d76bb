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

[[nodiscard]] bool isSameFile(int first, int second)
{
    struct stat one {};
    struct stat other {};
    return ::fstat(first, &one) == 0 && ::fstat(second, &other) == 0 && one.st_dev == other.st_dev
        && one.st_ino == other.st_ino;
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
    FileDescriptor file(
        ::openat(folder.get(), fileName, O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK, S_IRUSR | S_IWUSR));
    if (!file.isOpen()) {
        m_error = lastError();
        return State::impossible;
    }
    if (m_file.isOpen() && isSameFile(m_file.get(), file.get()))
        return State::held;
    if (::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
        m_error = lastError();
        return errno == EWOULDBLOCK ? State::heldByOther : State::impossible;
    }
    m_file = std::move(file);
    return State::held;
}

} // namespace nookle
