#pragma once

#include <QFlags>

namespace nookle {

/// The operations of a drag on the dragged item. The numbers are fixed.
enum class DragOperation {
    none = 0,
    copy = 1,
    link = 2,
    generic = 4,
    move = 16,
    remove = 32,
};

Q_DECLARE_FLAGS(DragOperations, DragOperation)
Q_DECLARE_OPERATORS_FOR_FLAGS(DragOperations)

} // namespace nookle
