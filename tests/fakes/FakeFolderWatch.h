#pragma once

#include "FileUrl.h"
#include "FolderWatch.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace nookle {

/// Folders that need not exist on disk.
class FakeFolderWatch final : public FolderWatch {
public:
    bool isFolder(const QUrl& url) const override { return m_folders.contains(url); }

    std::set<QByteArray> entryNames(const QUrl& folder) const override
    {
        ++looks;
        const auto found = m_folders.find(folder);
        return found == m_folders.end() || isUnreadable ? std::set<QByteArray>() : found->second;
    }

    std::unique_ptr<FolderSubscription> watch(const QUrl& folder, std::function<void()> onChanged) override
    {
        if (!isFolder(folder) || isUnreadable)
            return nullptr;
        watched.push_back(folder);
        return std::make_unique<Subscription>(*this, std::move(onChanged));
    }

    /// Makes a folder with those entries, without a word.
    void addFolder(const QUrl& folder, const std::set<QByteArray>& names = {}) { m_folders[folder] = names; }

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

        FakeFolderWatch& folders;
        std::function<void()> onChanged;
    };

    std::map<QUrl, std::set<QByteArray>> m_folders;
    std::vector<Subscription*> m_subscriptions;
};

} // namespace nookle
