#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

namespace nookle {

/// Whether `rect` covers `point`. The right and the bottom edge are outside, so that neighbours share no point.
[[nodiscard]] inline bool covers(const QRectF& rect, const QPointF& point)
{
    return point.x() >= rect.left() && point.x() < rect.left() + rect.width() && point.y() >= rect.top()
        && point.y() < rect.top() + rect.height();
}

/// The present displays of the desktop. Coordinates are points of the whole desktop, with the origin at the top left.
/// Main thread only.
class Displays {
public:
    virtual ~Displays() = default;

    /// The full frames of all displays, in the system's order. Cheap enough to call at every movement of a drag.
    [[nodiscard]] virtual std::vector<QRectF> frames() const = 0;

    /// The full frame of the main display; none when there is no display.
    [[nodiscard]] virtual std::optional<QRectF> mainFrame() const = 0;

    using Found = std::function<void(const std::optional<QRectF>& frame)>;
    /// Finds the display that the user is at, for when the pointer's place is not known, and calls `found` with its
    /// full frame; with none when there is no display. Calls it at once, or later if the display server has to be
    /// asked. A later search replaces one that has not ended.
    virtual void findActive(Found found) const { found(mainFrame()); }

    /// An identifier of the display with the full frame `frame`. It stays the same while the display is plugged in,
    /// even if the displays are rearranged. Empty when no display has that frame.
    [[nodiscard]] virtual QString identity(const QRectF& frame) const = 0;

    /// The part of the display with the full frame `frame` that panels and docks leave free.
    [[nodiscard]] virtual QRectF visibleFrame(const QRectF& frame) const = 0;
};

/// The first frame that covers `point`.
[[nodiscard]] inline std::optional<QRectF> frameAt(const std::vector<QRectF>& frames, const QPointF& point)
{
    const auto found =
        std::find_if(frames.begin(), frames.end(), [&](const QRectF& frame) { return covers(frame, point); });
    return found == frames.end() ? std::nullopt : std::optional(*found);
}

} // namespace nookle
