#pragma once

#include "DesktopBackend.h"

namespace nookle {

class CompositorEnd;

/// The desktop backend for sessions in which no panel can be shown. It has no display, sees no input and holds no
/// shortcut. The tray, the services and new screenshots still feed the shelf.
class NullBackend final : public DesktopBackend {
public:
    NullBackend();
    ~NullBackend() override;

    [[nodiscard]] const Displays& displays() const override;
    [[nodiscard]] const Pointer& pointer() const override;
    [[nodiscard]] InputMonitor& inputMonitor() override;
    [[nodiscard]] Compositing& compositing() override;
    [[nodiscard]] GlobalShortcuts& globalShortcuts() override;
    [[nodiscard]] TrayHost* embeddingTray() override { return nullptr; }
    /// Null: without a panel nothing is dropped.
    [[nodiscard]] std::unique_ptr<DropPayload> dropPayload(const QMimeData& data) override;
    void offerDrag(std::shared_ptr<const DragPayload> payload) override;
    [[nodiscard]] bool canReserveSpace() const override { return false; }
    [[nodiscard]] std::unique_ptr<PanelWindow> makePanelWindow(QWindow& window, double cornerRadius) override;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
    std::unique_ptr<CompositorEnd> m_end;
};

} // namespace nookle
