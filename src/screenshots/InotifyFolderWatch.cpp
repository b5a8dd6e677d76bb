#include "InotifyFolderWatch.h"

#include "FileDescriptor.h"
#include "FilePlaces.h"
#include "FileUrl.h"
#include "FolderEntries.h"
#include "Mounts.h"

#include <QSocketNotifier>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

namespace nookle {

namespace {

/// The numbers that identify a folder.
struct FolderNumbers {
    dev_t device;
    ino_t inode;

    bool operator==(const FolderNumbers&) const = default;
};

[[nodiscard]] std::optional<FolderNumbers> folderAt(const QByteArray& path)
{
    struct stat status {};
    const bool isFolder = !path.isEmpty() && ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
    return isFolder ? std::optional(FolderNumbers{ status.st_dev, status.st_ino }) : std::nullopt;
}

/// The result for the failure of the last inotify call.
[[nodiscard]] WatchedFolder failure()
{
    const bool hasNoneLeft = errno == ENOSPC || errno == EMFILE || errno == ENFILE || errno == ENOMEM;
    return { nullptr, hasNoneLeft ? WatchedFolder::Result::noWatchLeft : WatchedFolder::Result::unreadable };
}

class Subscription final : public FolderSubscription {
public:
    Subscription(const QByteArray& path, std::shared_ptr<Mounts> mounts, FileDescriptor inotify,
                 std::function<void()> onChanged)
        : m_path(path)
        , m_folder(folderAt(path))
        , m_mounts(std::move(mounts))
        , m_inotify(std::move(inotify))
        , m_notifier(m_inotify.get(), QSocketNotifier::Read)
        , m_onChanged(std::move(onChanged))
    {
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { takeEvents(); });
    }

    bool isInPlace() const override
    {
        return !m_hasEnded && FilePlaces(m_mounts->table()).mayLookAt(m_path, FilePlaces::Links::follow)
            && folderAt(m_path) == m_folder;
    }

private:
    void takeEvents()
    {
        // Only reads whether the watch has ended. The changes of entries need no details.
        std::array<char, 16384> events;
        ssize_t length = 0;
        while ((length = ::read(m_inotify.get(), events.data(), events.size())) > 0) {
            inotify_event event{};
            for (ssize_t offset = 0; offset < length; offset += ssize_t(sizeof(event) + event.len)) {
                std::memcpy(&event, events.data() + offset, sizeof(event));
                m_hasEnded = m_hasEnded || (event.mask & IN_IGNORED) != 0;
            }
        }
        // Copied, because the receiver may destroy this object.
        const std::function<void()> onChanged = m_onChanged;
        onChanged();
    }

    QByteArray m_path;
    std::optional<FolderNumbers> m_folder;
    /// Whether the kernel has ended the watch, because its folder is gone. A new folder may get the same numbers.
    bool m_hasEnded = false;
    std::shared_ptr<Mounts> m_mounts;
    FileDescriptor m_inotify;
    QSocketNotifier m_notifier;
    std::function<void()> m_onChanged;
};

} // namespace

InotifyFolderWatch::InotifyFolderWatch(std::shared_ptr<Mounts> mounts)
    : m_mounts(std::move(mounts))
{
}

bool InotifyFolderWatch::mayLookAt(const QByteArray& path) const
{
    return !path.isEmpty() && FilePlaces(m_mounts->table()).mayLookAt(path, FilePlaces::Links::follow);
}

bool InotifyFolderWatch::isFolder(const QUrl& url) const
{
    const QByteArray path = filePath(url);
    return mayLookAt(path) && folderAt(path);
}

std::set<QByteArray> InotifyFolderWatch::entryNames(const QUrl& folder) const
{
    std::set<QByteArray> names;
    const QByteArray path = filePath(folder);
    if (!mayLookAt(path))
        return names;
    const auto entries = FolderEntries::tryOpen(path, FolderEntries::Links::follow);
    while (const dirent* entry = entries ? entries->next() : nullptr)
        names.insert(entry->d_name);
    return names;
}

WatchedFolder InotifyFolderWatch::watch(const QUrl& folder, std::function<void()> onChanged)
{
    constexpr std::uint32_t entries = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ONLYDIR;
    constexpr std::uint32_t itself = IN_DELETE_SELF | IN_MOVE_SELF;
    const QByteArray path = filePath(folder);
    if (!mayLookAt(path))
        return { nullptr, WatchedFolder::Result::unreadable };
    FileDescriptor inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    if (!inotify.isOpen() || ::inotify_add_watch(inotify.get(), path.constData(), entries | itself) < 0)
        return failure();
    return { std::make_unique<Subscription>(path, m_mounts, std::move(inotify), std::move(onChanged)), {} };
}

} // namespace nookle
