#pragma once

#include "FileUrl.h"
#include "FolderWatch.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace nookle {

/// Folders that need not exist on disk.
class FakeFolderWatch : public FolderWatch {
public:
    bool isFolder(const QUrl& url) const override { return m_folders.contains(url); }

    std::set<QByteArray> entryNames(const QUrl& folder) const override
    {
        ++looks;
        const auto found = m_folders.find(folder);
        return found == m_folders.end() || isUnreadable ? std::set<QByteArray>() : found->second;
    }

    WatchedFolder watch(const QUrl& folder, std::function<void()> onChanged) override
    {
        if (!isFolder(folder) || isUnreadable)
            return { nullptr, WatchedFolder::Result::unreadable };
        if (hasNoWatchLeft)
            return { nullptr, WatchedFolder::Result::noWatchLeft };
        watched.push_back(folder);
        return { std::make_unique<Subscription>(*this, std::move(onChanged)), WatchedFolder::Result::watched };
    }

    /// Makes a folder with those entries, without a word.
    void addFolder(const QUrl& folder, const std::set<QByteArray>& names = {}) { m_folders[folder] = names; }

    /// Removes a folder with its entries. Its watches hear of nothing that happens there later.
    void removeFolder(const QUrl& folder)
    {
        m_folders.erase(folder);
        const std::vector<Subscription*> gone = std::exchange(m_subscriptions, {});
        for (Subscription* each : gone) {
            each->isWatching = false;
            each->onChanged();
        }
    }

    /// Puts another folder in the place of one, by means of a folder above. Its watches hear of nothing any more.
    void replaceFromAbove(const QUrl& folder, const std::set<QByteArray>& names)
    {
        m_folders[folder] = names;
        for (Subscription* each : std::exchange(m_subscriptions, {}))
            each->isWatching = false;
    }

    void addEntry(const QUrl& folder, const QByteArray& name)
    {
        m_folders[folder].insert(name);
        tell();
    }

    void removeEntry(const QUrl& folder, const QByteArray& name)
    {
        m_folders[folder].erase(name);
        tell();
    }

    /// Something happened in a watched folder.
    void tell() const
    {
        for (const Subscription* each : m_subscriptions)
            each->onChanged();
    }

    [[nodiscard]] std::size_t subscriptions() const { return m_subscriptions.size(); }

    /// Every folder that was ever watched, in order.
    std::vector<QUrl> watched;
    bool isUnreadable = false;
    bool hasNoWatchLeft = false;
    mutable int looks = 0;

private:
    struct Subscription final : FolderSubscription {
        Subscription(FakeFolderWatch& owner, std::function<void()> changed)
            : folders(owner)
            , onChanged(std::move(changed))
        {
            folders.m_subscriptions.push_back(this);
        }
        ~Subscription() override { std::erase(folders.m_subscriptions, this); }
        bool isInPlace() const override { return isWatching; }

        bool isWatching = true;
        FakeFolderWatch& folders;
        std::function<void()> onChanged;
    };

    std::map<QUrl, std::set<QByteArray>> m_folders;
    std::vector<Subscription*> m_subscriptions;
};

} // namespace nookle
