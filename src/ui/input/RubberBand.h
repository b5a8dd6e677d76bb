#pragma once

#include <QPoint>
#include <QRect>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

class QAbstractScrollArea;

namespace nookle {

class Cancellable;
class MainQueue;

/// The rectangle that the user draws with the mouse over a scrolling list. Its first corner scrolls with the list, and
/// near the ends of the list it makes the list scroll. Its second corner stays in view. If it begins above or below the
/// list, it is drawn once the pointer has come in, and makes the list scroll once the pointer has been away from the
/// ends. Draws itself within the list, and takes no events.
class RubberBand final : public QWidget {
    Q_OBJECT

public:
    /// Both must outlive the rubber band.
    RubberBand(QAbstractScrollArea& list, MainQueue& queue);
    ~RubberBand() override;

    /// Called when it is drawn anew, with the rectangle in the coordinates of the list's content. Set by the owner.
    std::function<void(const QRect& rect)> onChanged;
    /// Called when it appears (true) and when it ends. Set by the owner.
    std::function<void(bool isDrawn)> onDrawnChanged = [](bool) {};

    // Positions are those of the list's viewport, and may lie outside of it.

    void press(const QPoint& position);
    void move(const QPoint& position);

    /// Ends it. Returns false if it was never drawn: the mouse was clicked.
    bool end();

    /// Draws it anew. Call it when the list has scrolled or has other rows.
    void follow();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// The nearest position that is neither above nor below the list.
    [[nodiscard]] QPoint clamped(const QPoint& position) const;
    void scrollNearEnds();
    /// In points a step; negative upwards.
    [[nodiscard]] int scrollStep() const;

    QAbstractScrollArea& m_list;
    MainQueue& m_queue;
    /// The first corner, in the coordinates of the list's content. None while the button is up.
    std::optional<QPoint> m_start;
    QPoint m_position;
    bool m_isDrawn = false;
    /// False while the pointer only comes into the list.
    bool m_mayScroll = false;
    std::unique_ptr<Cancellable> m_scrolling;
};

} // namespace nookle
