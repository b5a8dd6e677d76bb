#pragma once

#include "Clipboard.h"

#include <QByteArrayList>
#include <QObject>

#include <functional>

class KSystemClipboard;

namespace nookle {

/// When a program may use the clipboard.
enum class ClipboardAccess {
    always,
    /// While one of its windows has the keyboard focus.
    withFocus,
};

/// What a compositor grants that offers these interfaces.
[[nodiscard]] ClipboardAccess clipboardAccess(const QByteArrayList& interfaces);

/// The clipboard through the compositor's interface for clipboard managers, which needs no keyboard focus. Where the
/// compositor has none, it is the toolkit's clipboard, which does, and the user is told what that forbids.
class WaylandClipboard final : public QObject, public Clipboard {
    Q_OBJECT

public:
    /// The application object must exist and run on Wayland. `flush` is as in `WaylandDropPayload`: a child process
    /// reads the formats here, too.
    WaylandClipboard(std::function<bool()> flush, ClipboardAccess access);

    [[nodiscard]] std::unique_ptr<ClipboardContent> content(Content which) override;
    [[nodiscard]] QString selectionObstacle() const override;
    void copy(std::unique_ptr<QMimeData> data) override;

private:
    std::function<bool()> m_flush;
    ClipboardAccess m_access;
    KSystemClipboard& m_clipboard;
};

} // namespace nookle
