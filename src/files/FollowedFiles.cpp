#include "FollowedFiles.h"

#include "FileIdentity.h"
#include "FilePlaces.h"

#include <QSocketNotifier>

#include <limits.h>
#include <sys/inotify.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <utility>
#include <vector>

namespace nookle {

namespace {

[[nodiscard]] QByteArray linkOf(const FileDescriptor& descriptor)
{
    return "/proc/self/fd/" + QByteArray::number(descriptor.get());
}

[[nodiscard]] bool isDeleted(const FileDescriptor& descriptor)
{
    struct stat status {};
    return ::fstat(descriptor.get(), &status) != 0 || status.st_nlink == 0;
}

[[nodiscard]] std::optional<QByteArray> presentPath(const FileDescriptor& descriptor, const FilePlaces& places)
{
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink(linkOf(descriptor).constData(), target.data(), target.size());
    if (length <= 0 || target[0] != '/')
        return std::nullopt;

    // The kernel appends " (deleted)" to the path of a deleted name, and an existing name may end like that too. So
    // compare the file at the path with the open one.
    const QByteArray path(target.data(), length);
    struct stat followed {};
    struct stat found {};
    const bool isThere = places.mayLookAt(path, FilePlaces::Links::refuse) && ::fstat(descriptor.get(), &followed) == 0
        && ::lstat(path.constData(), &found) == 0 && followed.st_dev == found.st_dev && followed.st_ino == found.st_ino;
    return isThere ? std::optional(path) : std::nullopt;
}

[[nodiscard]] std::size_t mostDescriptors()
{
    constexpr rlim_t enough = 1000;
    rlimit limit{};
    return ::getrlimit(RLIMIT_NOFILE, &limit) == 0 ? std::min(limit.rlim_cur / 2, enough) : 0;
}

} // namespace

FollowedFiles::FollowedFiles(const QByteArray& home)
    : m_mostFiles(mostDescriptors())
    , m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    struct stat status {};
    if (::stat(home.constData(), &status) == 0)
        m_device = status.st_dev;
    if (!m_inotify.isOpen())
        return;
    m_notifier = std::make_unique<QSocketNotifier>(m_inotify.get(), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(), [this] { readEvents(); });
}

FollowedFiles::~FollowedFiles() = default;

void FollowedFiles::follow(const QByteArray& reference, const QByteArray& path, FileDescriptor descriptor)
{
    if (room() == 0 || m_files.contains(reference))
        return;
    struct stat status {};
    if (::fstat(descriptor.get(), &status) != 0 || status.st_dev != m_device)
        return;
    // Deleting a file changes its link count, which is reported as a change of attributes.
    const int watch = ::inotify_add_watch(m_inotify.get(), linkOf(descriptor).constData(), IN_ATTRIB);
    if (watch < 0)
        return;
    const auto file = m_files.emplace(reference, Followed{ std::move(descriptor), watch, path, status.st_ino }).first;
    m_referencesByWatch.emplace(watch, reference);
    // The file may have been deleted before the watch was added.
    if (isDeleted(file->second.descriptor))
        release(file);
}

std::optional<QByteArray> FollowedFiles::pathInPlace(const QByteArray& reference, const FilePlaces& places) const
{
    const auto file = m_files.find(reference);
    if (file == m_files.end())
        return std::nullopt;
    struct stat found {};
    const QByteArray& path = file->second.firstPath;
    const bool isInPlace = places.mayLookAt(path, FilePlaces::Links::refuse) && ::lstat(path.constData(), &found) == 0
        && found.st_dev == m_device && found.st_ino == file->second.inode && !S_ISLNK(found.st_mode);
    return isInPlace ? std::optional(path) : std::nullopt;
}

std::optional<QByteArray> FollowedFiles::path(const QByteArray& reference, const FilePlaces& places)
{
    const auto file = m_files.find(reference);
    if (file == m_files.end())
        return std::nullopt;
    if (isDeleted(file->second.descriptor)) {
        release(file);
        return std::nullopt;
    }
    return presentPath(file->second.descriptor, places);
}

void FollowedFiles::release(const QByteArray& reference)
{
    const auto file = m_files.find(reference);
    if (file != m_files.end())
        release(file);
}

void FollowedFiles::release(Files::iterator file)
{
    const int watch = file->second.watch;
    const auto [first, last] = m_referencesByWatch.equal_range(watch);
    const auto isFile = [&](const auto& entry) { return entry.second == file->first; };
    m_referencesByWatch.erase(std::find_if(first, last, isFile));
    m_files.erase(file);
    if (!m_referencesByWatch.contains(watch))
        ::inotify_rm_watch(m_inotify.get(), watch);
}

void FollowedFiles::readEvents()
{
    alignas(inotify_event) std::array<char, 4096> buffer{};
    ssize_t length = 0;
    while ((length = ::read(m_inotify.get(), buffer.data(), buffer.size())) > 0) {
        std::size_t offset = 0;
        while (offset < static_cast<std::size_t>(length)) {
            inotify_event event{};
            std::memcpy(&event, buffer.data() + offset, sizeof(event));
            offset += sizeof(event) + event.len;
            if ((event.mask & IN_Q_OVERFLOW) != 0)
                releaseAllDeleted();
            else
                releaseIfDeleted(event.wd);
        }
    }
}

void FollowedFiles::releaseIfDeleted(int watch)
{
    std::vector<QByteArray> references;
    const auto [first, last] = m_referencesByWatch.equal_range(watch);
    std::for_each(first, last, [&](const auto& entry) { references.push_back(entry.second); });
    for (const QByteArray& reference : references) {
        const auto file = m_files.find(reference);
        if (isDeleted(file->second.descriptor))
            release(file);
    }
}

void FollowedFiles::releaseAllDeleted()
{
    for (auto file = m_files.begin(); file != m_files.end();) {
        const auto current = file++;
        if (isDeleted(current->second.descriptor))
            release(current);
    }
}

} // namespace nookle
