#pragma once

#include <QRasterWindow>
#include <QTimer>

#include <functional>

class QDropEvent;

namespace nookle {

class SeenPointer;

/// An invisible window along the right edge of one display, 3 points wide, over which a drag comes when it reaches the
/// edge. When the pointer comes without a drag, the strip steps aside for a moment: it takes no input, so that a click
/// there reaches the window below. Main thread only.
class EdgeStrip final : public QRasterWindow {
    Q_OBJECT

public:
    enum class Level {
        /// Below windows that fill the whole screen, which then keep the display for themselves.
        belowFullScreen,
        /// Above all windows.
        aboveAll,
    };

    /// `pointer` must outlive this object. `screen` is the display's.
    EdgeStrip(QScreen& screen, Level level, SeenPointer& pointer);
    ~EdgeStrip() override;

    /// Called when a drag of another program has entered the strip. Set by the owner.
    std::function<void()> onDragEntered;
    /// Called with each event of such a drag over the strip, whose position is in points of the desktop. The receiver
    /// accepts the event or ignores it. Set by the owner.
    std::function<void(QDropEvent& event, const QPointF& position)> onDragEvent;
    /// Called when the drag has left the strip again. Set by the owner.
    std::function<void()> onDragLeft;
    /// Called when the pointer has come without a drag. Set by the owner.
    std::function<void()> onPointerCame;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void stepAside();
    void comeBack();
    void handleDrag(QDropEvent& event);
    [[nodiscard]] QPointF onDesktop(const QPointF& position) const;

    SeenPointer& m_pointer;
    QTimer m_aside;
};

} // namespace nookle
