#pragma once

#include "Clipboard.h"

#include <QObject>

namespace nookle {

/// The clipboard as the toolkit reaches it. In a Wayland session only a program with the keyboard focus does.
class ToolkitClipboard final : public QObject, public Clipboard {
    Q_OBJECT

public:
    /// The application object must exist.
    ToolkitClipboard();

    [[nodiscard]] std::unique_ptr<ClipboardContent> content(Content which) override;
    void copy(std::unique_ptr<QMimeData> data) override;
};

} // namespace nookle
