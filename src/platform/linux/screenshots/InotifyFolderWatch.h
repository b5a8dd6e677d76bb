#pragma once

#include "FolderWatch.h"

namespace nookle {

/// Folders of the file system. A folder that is deleted, replaced or unmounted while it is watched is quiet from then
/// on. Main thread only.
class InotifyFolderWatch final : public FolderWatch {
public:
    [[nodiscard]] bool isFolder(const QUrl& url) const override;
    [[nodiscard]] std::set<QByteArray> entryNames(const QUrl& folder) const override;
    [[nodiscard]] std::unique_ptr<FolderSubscription> watch(const QUrl& folder,
                                                            std::function<void()> onChanged) override;
};

} // namespace nookle
