#pragma once

#include "Clipboard.h"
#include "ToolkitClipboard.h"

#include <chrono>

namespace nookle {

/// The clipboard of the X server. Reading does not block; what is copied goes through the toolkit.
class X11Clipboard final : public Clipboard {
public:
    /// The application object must exist and run on X11. Each content has `patience` for all that is read of it; by
    /// default so long that an owner can encode a large picture first.
    explicit X11Clipboard(std::chrono::milliseconds patience = std::chrono::seconds(5));

    [[nodiscard]] std::unique_ptr<ClipboardContent> content(Content which) override;
    void copy(std::unique_ptr<QMimeData> data) override;

private:
    std::chrono::milliseconds m_patience;
    ToolkitClipboard m_toolkit;
};

} // namespace nookle
