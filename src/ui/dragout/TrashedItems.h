#pragma once

#include "ShelfItem.h"

#include <QList>

namespace nookle {

class ShelfStore;
class Trash;

/// Removes items that were dropped on the Trash from the shelf, all in one change. What can come back is one step of
/// undo. A file that is still in its place is moved to the Trash first; a failure is logged.
void removeTrashed(const QList<ShelfItem>& items, ShelfStore& store, Trash& trash);

} // namespace nookle
