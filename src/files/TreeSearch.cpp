#include "TreeSearch.h"

#include "FilePlaces.h"
#include "FolderEntries.h"
#include "MainQueue.h"
#include "Mounts.h"
#include "ReturnPath.h"

#include <unordered_map>
#include <utility>

namespace nookle {

namespace {

class Walk {
public:
    Walk(QByteArray root, const std::vector<FileIdentity>& wanted, Mounts& mounts, const ReturnPath& way)
        : m_root(std::move(root))
        , m_rootWithoutLinks(FilePlaces(mounts.table()).resolved(m_root))
        , m_wanted(wanted)
        , m_mounts(mounts)
        , m_return(way)
        , m_places(wanted.size())
    {
        for (std::size_t index = 0; index < wanted.size(); ++index)
            m_missing.emplace(wanted[index].inode, index);
    }

    [[nodiscard]] TreeSearch::Places run()
    {
        const auto rootFolder = FolderEntries::tryOpen(m_root, FolderEntries::Links::follow);
        const auto device = rootFolder ? rootFolder->device() : std::nullopt;
        if (!device)
            return m_places;
        readFolder(m_root, *rootFolder);
        while (!m_folders.empty() && !isDone()) {
            const QByteArray path = std::move(m_folders.back());
            m_folders.pop_back();
            // Opening it would access the mounted file system, or even trigger a mount.
            if (isMountPoint(path))
                continue;
            const auto folder = FolderEntries::tryOpen(path, FolderEntries::Links::refuse);
            if (folder && folder->device() == device)
                readFolder(path, *folder);
        }
        return m_places;
    }

private:
    [[nodiscard]] bool isDone() const { return m_missing.empty() || m_return.isClosed(); }

    [[nodiscard]] bool isMountPoint(const QByteArray& path) const
    {
        return m_mounts.table()->at(m_rootWithoutLinks + path.mid(m_root.size())).has_value();
    }

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
        if (isMountPoint(path))
            return;
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

    QByteArray m_root;
    QByteArray m_rootWithoutLinks;
    const std::vector<FileIdentity>& m_wanted;
    Mounts& m_mounts;
    const ReturnPath& m_return;
    /// The indexes in `m_wanted` of the files that are not found yet, by inode.
    std::unordered_multimap<quint64, std::size_t> m_missing;
    /// Paths instead of open folders, because a tree may be deeper than the limit on descriptors.
    std::vector<QByteArray> m_folders;
    TreeSearch::Places m_places;
};

} // namespace

TreeSearch::TreeSearch(const QByteArray& root, const std::vector<FileIdentity>& wanted, std::shared_ptr<Mounts> mounts,
                       MainQueue& queue, Completion completion)
    : m_completion(std::make_shared<Completion>(std::move(completion)))
    , m_return(std::make_shared<ReturnPath>(queue))
{
    const auto finish = [way = m_return, weak = std::weak_ptr(m_completion)](Places places) {
        way->post([weak, places = std::move(places)] {
            if (const auto call = weak.lock())
                (*call)(places);
        });
    };
    const auto work = [finish, root, wanted, mounts = std::move(mounts), way = m_return] {
        finish(Walk(root, wanted, *mounts, *way).run());
    };
    if (!runDetached("nookle search", ThreadPriority::idle, work))
        finish(Places(wanted.size()));
}

TreeSearch::~TreeSearch()
{
    m_return->close();
}

} // namespace nookle
