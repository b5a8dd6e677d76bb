#pragma once

#include "Pointer.h"

#include <optional>

namespace nookle {

/// The pointer as far as it has been over windows of this program, for display servers that tell nothing else. Main
/// thread only.
class SeenPointer : public Pointer {
public:
    /// Outside all displays while the pointer is over other programs.
    [[nodiscard]] QPointF position() const override { return m_position.value_or(nowhere); }

    /// Only known during a drag over a window of this program.
    [[nodiscard]] bool isLeftButtonDown() const override { return m_isDragging; }

    /// Call these when the pointer, without or with a drag of content, is at `position` over a window of this program.
    void move(const QPointF& position);
    void drag(const QPointF& position);

    /// Call this when the pointer or the drag has left the window, or the drag has ended there.
    void leave();

private:
    static constexpr QPointF nowhere{ -1e6, -1e6 };

    std::optional<QPointF> m_position;
    bool m_isDragging = false;
};

inline void SeenPointer::move(const QPointF& position)
{
    m_position = position;
    m_isDragging = false;
}

inline void SeenPointer::drag(const QPointF& position)
{
    m_position = position;
    m_isDragging = true;
}

inline void SeenPointer::leave()
{
    m_position.reset();
    m_isDragging = false;
}

} // namespace nookle
