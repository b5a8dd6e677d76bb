#include "TreeSearch.h"

#include "FolderEntries.h"
#include "MainQueue.h"

#include <QThread>

#include <unordered_map>
#include <utility>

namespace nookle {

namespace {

class Walk {
public:
    Walk(const std::vector<FileIdentity>& wanted, const std::atomic<bool>& isInterrupted)
        : m_wanted(wanted)
        , m_isInterrupted(isInterrupted)
        , m_places(wanted.size())
    {
        for (std::size_t index = 0; index < wanted.size(); ++index)
            m_missing.emplace(wanted[index].inode, index);
    }

    [[nodiscard]] TreeSearch::Places run(const QByteArray& root)
    {
        const auto rootFolder = FolderEntries::tryOpen(root, FolderEntries::Links::follow);
        const auto device = rootFolder ? rootFolder->device() : std::nullopt;
        if (!device)
            return m_places;
        readFolder(root, *rootFolder);
        while (!m_folders.empty() && !isDone()) {
            const QByteArray path = std::move(m_folders.back());
            m_folders.pop_back();
            const auto folder = FolderEntries::tryOpen(path, FolderEntries::Links::refuse);
            if (folder && folder->device() == device)
                readFolder(path, *folder);
        }
        return m_places;
    }

private:
    [[nodiscard]] bool isDone() const { return m_missing.empty() || m_isInterrupted.load(std::memory_order_relaxed); }

    void readFolder(const QByteArray& path, FolderEntries& folder)
    {
        while (const dirent* entry = isDone() ? nullptr : folder.next()) {
            if (folder.isFolder(*entry))
                m_folders.push_back(entryPath(path, entry->d_name));
            if (m_missing.contains(entry->d_ino))
                inspect(entry->d_ino, entryPath(path, entry->d_name));
        }
    }

    void inspect(quint64 inode, const QByteArray& path)
    {
        const auto identity = FileIdentity::of(path);
        auto [entry, last] = m_missing.equal_range(inode);
        while (entry != last) {
            if (!identity || !identity->matches(m_wanted[entry->second])) {
                ++entry;
                continue;
            }
            m_places[entry->second] = path;
            entry = m_missing.erase(entry);
        }
    }

    const std::vector<FileIdentity>& m_wanted;
    const std::atomic<bool>& m_isInterrupted;
    /// The places in `m_wanted` of what is still to be found, by inode.
    std::unordered_multimap<quint64, std::size_t> m_missing;
    /// Paths, not open folders: a tree may be deeper than there are descriptors.
    std::vector<QByteArray> m_folders;
    TreeSearch::Places m_places;
};

} // namespace

TreeSearch::TreeSearch(const QByteArray& root, std::vector<FileIdentity> wanted, MainQueue& queue,
                       Completion completion)
    : m_completion(std::make_shared<Completion>(std::move(completion)))
{
    const auto work = [this, root, wanted = std::move(wanted), &queue, weak = std::weak_ptr(m_completion)] {
        queue.post([weak, places = Walk(wanted, m_isInterrupted).run(root)] {
            if (const auto call = weak.lock())
                (*call)(places);
        });
    };
    m_thread.reset(QThread::create(work));
    m_thread->setObjectName(QStringLiteral("nookle search"));
    m_thread->start(QThread::IdlePriority);
}

TreeSearch::~TreeSearch()
{
    m_isInterrupted = true;
    m_thread->wait();
}

} // namespace nookle
