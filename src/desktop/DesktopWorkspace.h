#pragma once

#include "Workspace.h"

namespace nookle {

/// Opens things in the desktop's programs, and shows files in its file manager.
class DesktopWorkspace final : public Workspace {
public:
    void open(const QUrl& url) override;
    void reveal(const QList<QUrl>& files) override;
};

} // namespace nookle
