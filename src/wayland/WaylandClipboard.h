#pragma once

#include "Clipboard.h"

#include <QObject>

#include <functional>

class KSystemClipboard;

namespace nookle {

/// The clipboard through the compositor's interface for clipboard managers, which needs no keyboard focus. Where the
/// compositor has none, it is the toolkit's clipboard, which does.
class WaylandClipboard final : public QObject, public Clipboard {
    Q_OBJECT

public:
    /// The application object must exist and run on Wayland. `flush` is as in `WaylandDropPayload`: a child process
    /// reads the formats here, too.
    explicit WaylandClipboard(std::function<bool()> flush);

    [[nodiscard]] std::unique_ptr<ClipboardContent> content(Content which) override;
    void copy(std::unique_ptr<QMimeData> data) override;

private:
    std::function<bool()> m_flush;
    KSystemClipboard& m_clipboard;
};

} // namespace nookle
