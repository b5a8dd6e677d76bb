#pragma once

#include <QRasterWindow>

#include <functional>

class QDropEvent;

namespace nookle {

/// An invisible window along the right edge of one display, over which a drag comes when it reaches the edge. What
/// places it is the display server's. Main thread only.
class StripWindow : public QRasterWindow {
public:
    /// In points.
    static constexpr int thickness = 3;

    StripWindow();
    ~StripWindow() override;

    /// Called with each event of a drag of another program over the strip, whose position is in points of the desktop.
    /// The receiver accepts the event or ignores it. Set by the owner.
    std::function<void(QDropEvent& event, const QPointF& position)> onDragEvent;
    /// Called when the drag has left the strip again. Set by the owner.
    std::function<void()> onDragLeft;
    /// Called when the pointer has come without a drag. Set by the owner.
    std::function<void()> onPointerCame;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    /// The place on the desktop of a point of the window.
    [[nodiscard]] virtual QPointF onDesktop(const QPointF& position) const = 0;
    virtual void pointerCame();

private:
    void handleDrag(QDropEvent& event);
};

} // namespace nookle
