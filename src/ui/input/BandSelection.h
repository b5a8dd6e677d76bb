#pragma once

#include <QPoint>
#include <QSet>
#include <QUuid>

#include <functional>

class QAbstractScrollArea;
class QRect;

namespace nookle {

class MainQueue;
class RubberBand;

/// Selects tiles by a rubber band that begins beside them.
class BandSelection final {
public:
    /// Both must outlive this object.
    BandSelection(QAbstractScrollArea& list, MainQueue& queue);

    /// Returns the items whose tiles a rectangle of the list's content touches. Set by the owner.
    std::function<QSet<QUuid>(const QRect& rect)> itemsUnder;
    /// Called with the items that are to be selected, and no others. Set by the owner.
    std::function<void(const QSet<QUuid>& ids)> onSelected;
    /// Called when the rubber band appears (true) and when it ends.
    std::function<void(bool isDrawn)> onDrawnChanged = [](bool) {};

    // The mouse was pressed, moved and released. Positions are those of the screen.

    /// The rubber band adds to what is `selected`, or selects anew.
    void press(const QPoint& globalPosition, const QSet<QUuid>& selected, bool adds);
    /// Ends the rubber band if the left button is not among `buttons`: something else has taken its release.
    void move(const QPoint& globalPosition, Qt::MouseButtons buttons);
    /// Ends the rubber band. Returns whether the selection is to end: the mouse was clicked, and would not have added.
    bool release();

    /// Ends the rubber band and takes its effect back. Returns false if there is none.
    bool cancel();

    /// Call this when the list has scrolled or has other rows.
    void follow();

private:
    [[nodiscard]] QPoint inViewport(const QPoint& globalPosition) const;

    QAbstractScrollArea& m_list;
    /// A child of the list.
    RubberBand* m_band;
    QSet<QUuid> m_selectedBefore;
    bool m_adds = false;
    bool m_isPressed = false;
};

} // namespace nookle
