#pragma once

#include "EdgeStrip.h"
#include "ForeignDrags.h"

#include <memory>
#include <optional>
#include <vector>

namespace nookle {

class EdgeInputMonitor;
class SeenPointer;

/// The strips of all displays. Where the start of each drag is told, they are there only during drags, above all
/// windows. Elsewhere they are always there, below full-screen windows. Without anybody who wants to know of drags,
/// there are none. Main thread only.
class EdgeStrips final {
public:
    /// `drags` tells when a drag begins; null where nothing does. All arguments must outlive this object.
    EdgeStrips(EdgeInputMonitor& input, SeenPointer& pointer, ForeignDrags* drags);
    ~EdgeStrips();
    EdgeStrips(const EdgeStrips&) = delete;
    EdgeStrips& operator=(const EdgeStrips&) = delete;

    /// Call this when a display was added, removed or changed.
    void displaysChanged();

    /// Call this when a sign elsewhere shows that no drag is under way.
    void dragHasEnded();

    /// As in `EdgeStrip`.
    std::function<void(QDropEvent& event, const QPointF& position)> onDragEvent;
    std::function<void()> onDragLeft;
    /// Whether the panel is shown. Set by the owner.
    std::function<bool()> isPanelShown;
    /// Called when no drag is at a strip any more: the pointer came without one, or the strips are gone. Set by the
    /// owner.
    std::function<void()> onDragEnded;

private:
    /// The strips that are wanted now, if any.
    [[nodiscard]] std::optional<EdgeStrip::Level> wanted() const;
    void update();
    void removeStrips();
    void makeStrips(EdgeStrip::Level level);
    void handleDrag(EdgeStrip& strip, QDropEvent& event, const QPointF& position);
    void dragHasLeft();

    EdgeInputMonitor& m_input;
    SeenPointer& m_pointer;
    ForeignDrags* m_drags;
    bool m_isToldOfDrags = false;
    /// Whether a drag is over a strip.
    bool m_hasDrag = false;
    /// What the present strips are; none without strips.
    std::optional<EdgeStrip::Level> m_level;
    std::vector<std::unique_ptr<EdgeStrip>> m_strips;
    /// The strips that are no longer wanted, until the event that ended them has been handled.
    std::vector<std::unique_ptr<EdgeStrip>> m_ended;
    QObject m_context;
};

} // namespace nookle
