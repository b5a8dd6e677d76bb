#pragma once

#include <QPointF>
#include <QRectF>
#include <QString>

#include <algorithm>
#include <optional>
#include <vector>

namespace nookle {

/// Whether `rect` covers `point`. The right and the bottom edge are outside, so that neighbours share no point.
[[nodiscard]] inline bool covers(const QRectF& rect, const QPointF& point)
{
    return point.x() >= rect.left() && point.x() < rect.left() + rect.width() && point.y() >= rect.top()
        && point.y() < rect.top() + rect.height();
}

/// The displays of the desktop, as they are at the call, in points of the desktop's coordinates (origin at the top
/// left). Main thread only.
class Displays {
public:
    virtual ~Displays() = default;

    /// The full frames of all displays, in the system's order. Cheap enough for every movement of a drag.
    [[nodiscard]] virtual std::vector<QRectF> frames() const = 0;

    /// The full frame of the main display; none when there is no display.
    [[nodiscard]] virtual std::optional<QRectF> mainFrame() const = 0;

    /// What tells the display with that full frame from the others while it is plugged in, wherever the arrangement of
    /// the displays puts it. Empty when there is no such display.
    [[nodiscard]] virtual QString identity(const QRectF& frame) const = 0;

    /// What panels and docks leave of the display with that full frame.
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
