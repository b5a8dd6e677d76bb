#include "FolderLock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace nookle {

namespace {

[[nodiscard]] bool isSameFolder(int first, int second)
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
    FileDescriptor folder(::open(m_path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen()) {
        m_error = lastError();
        return errno == ENOENT ? State::noFolder : State::impossible;
    }
    if (m_folder.isOpen() && isSameFolder(m_folder.get(), folder.get()))
        return State::held;
    if (::flock(folder.get(), LOCK_EX | LOCK_NB) != 0) {
        m_error = lastError();
        return errno == EWOULDBLOCK ? State::heldByOther : State::impossible;
    }
    m_folder = std::move(folder);
    return State::held;
}

} // namespace nookle
