#pragma once

#include "Failure.h"
#include "ShelfItem.h"

#include <QByteArray>
#include <QList>

#include <variant>

namespace nookle {

/// The persisted form of the whole shelf.
struct ShelfIndex {
    /// The most bytes that are read, and so the most that are written. A damaged file without an end could exhaust the
    /// memory.
    static constexpr qsizetype largestSize = 1'000'000'000;

    /// The format's version; read, but not checked.
    qint64 version = 1;
    /// In display order.
    QList<ShelfItem> items;

    /// JSON with sorted keys, one member a line. Dates lose their fractions of a second.
    [[nodiscard]] QByteArray encode() const;

    /// A number of bytes that these items do not exceed in an index. Quick: it does not look into texts.
    [[nodiscard]] static qsizetype upperBound(const QList<ShelfItem>& items);

    /// The same, closer: it reads every character.
    [[nodiscard]] static qsizetype closeUpperBound(const QList<ShelfItem>& items);

    /// Reads what `encode` wrote. One bad item makes all of it unreadable.
    [[nodiscard]] static std::variant<ShelfIndex, Failure> decode(const QByteArray& bytes);

    bool operator==(const ShelfIndex&) const = default;
};

} // namespace nookle
