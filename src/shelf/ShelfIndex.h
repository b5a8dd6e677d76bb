#pragma once

#include "Failure.h"
#include "ShelfItem.h"

#include <QByteArray>
#include <QList>

#include <variant>

namespace nookle {

/// The persisted form of the whole shelf.
struct ShelfIndex {
    /// The format's version; read, but not checked.
    qint64 version = 1;
    /// In display order.
    QList<ShelfItem> items;

    /// JSON with sorted keys, one member a line. Dates lose their fractions of a second.
    [[nodiscard]] QByteArray encode() const;

    /// Reads what `encode` wrote. One bad item makes all of it unreadable.
    [[nodiscard]] static std::variant<ShelfIndex, Failure> decode(const QByteArray& bytes);

    bool operator==(const ShelfIndex&) const = default;
};

} // namespace nookle
