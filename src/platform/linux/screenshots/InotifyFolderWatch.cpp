#include "InotifyFolderWatch.h"

#include "FileDescriptor.h"
#include "FileUrl.h"
#include "FolderEntries.h"

#include <QSocketNotifier>

#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace nookle {

namespace {

class Subscription final : public FolderSubscription {
public:
    Subscription(FileDescriptor inotify, std::function<void()> onChanged)
        : m_inotify(std::move(inotify))
        , m_notifier(m_inotify.get(), QSocketNotifier::Read)
        , m_onChanged(std::move(onChanged))
    {
        QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { takeEvents(); });
    }

private:
    void takeEvents()
    {
        // What happened does not matter, only that something did.
        std::array<char, 16384> events;
        while (::read(m_inotify.get(), events.data(), events.size()) > 0)
            continue;
        // The receiver may end the subscription.
        const std::function<void()> onChanged = m_onChanged;
        onChanged();
    }

    FileDescriptor m_inotify;
    QSocketNotifier m_notifier;
    std::function<void()> m_onChanged;
};

} // namespace

bool InotifyFolderWatch::isFolder(const QUrl& url) const
{
    struct stat status {};
    const QByteArray path = filePath(url);
    return !path.isEmpty() && ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

std::set<QByteArray> InotifyFolderWatch::entryNames(const QUrl& folder) const
{
    std::set<QByteArray> names;
    const auto entries = FolderEntries::tryOpen(filePath(folder), FolderEntries::Links::follow);
    while (const dirent* entry = entries ? entries->next() : nullptr)
        names.insert(entry->d_name);
    return names;
}

std::unique_ptr<FolderSubscription> InotifyFolderWatch::watch(const QUrl& folder, std::function<void()> onChanged)
{
    constexpr std::uint32_t entries = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_ONLYDIR;
    FileDescriptor inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
    const QByteArray path = filePath(folder);
    if (!inotify.isOpen() || path.isEmpty() || ::inotify_add_watch(inotify.get(), path.constData(), entries) < 0)
        return nullptr;
    return std::make_unique<Subscription>(std::move(inotify), std::move(onChanged));
}

} // namespace nookle
