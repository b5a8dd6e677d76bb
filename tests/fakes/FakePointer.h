#pragma once

#include "Pointer.h"

#include <QRectF>

namespace nookle {

/// A pointer that stands where the test puts it.
class FakePointer final : public Pointer {
public:
    [[nodiscard]] QPointF position() const override { return at; }
    [[nodiscard]] bool isLeftButtonDown() const override { return leftButtonDown; }

    void moveInside(const QRectF& frame) { at = frame.center(); }
    void moveOutside(const QRectF& frame) { at = frame.topLeft() - QPointF(50, 0); }

    QPointF at{ 100, 100 };
    bool leftButtonDown = false;
};

} // namespace nookle
