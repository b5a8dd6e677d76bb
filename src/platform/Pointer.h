#pragma once

#include <QPointF>

namespace nookle {

/// The mouse pointer, anywhere on the desktop. Main thread only.
class Pointer {
public:
    virtual ~Pointer() = default;

    /// The position in points of the desktop's coordinates.
    [[nodiscard]] virtual QPointF position() const = 0;

    /// Whether the left button is down, in any program.
    [[nodiscard]] virtual bool isLeftButtonDown() const = 0;
};

} // namespace nookle
