#pragma once

#include "FolderWatch.h"

#include <memory>

namespace nookle {

class Mounts;

/// Watches folders with inotify. Main thread only.
class InotifyFolderWatch final : public FolderWatch {
public:
    explicit InotifyFolderWatch(std::shared_ptr<Mounts> mounts);

    [[nodiscard]] bool isFolder(const QUrl& url) const override;
    [[nodiscard]] std::set<QByteArray> entryNames(const QUrl& folder) const override;
    [[nodiscard]] WatchedFolder watch(const QUrl& folder, std::function<void()> onChanged) override;

private:
    [[nodiscard]] bool mayLookAt(const QByteArray& path) const;

    std::shared_ptr<Mounts> m_mounts;
};

} // namespace nookle
