#pragma once

#include "Failure.h"
#include "ShelfItem.h"

#include <QByteArray>
#include <QList>

#include <variant>

namespace nookle {

/// The stored form of the whole shelf.
struct ShelfIndex {
    /// The maximum size of an index that is read, and so also of one that is written. A larger, damaged file could
    /// exhaust the memory.
    static constexpr qsizetype largestSize = 1'000'000'000;

    /// The format's version; read, but not checked.
    qint64 version = 1;
    /// In display order.
    QList<ShelfItem> items;

    /// The index as JSON with sorted keys, one member a line. Dates are written in whole seconds.
    [[nodiscard]] QByteArray encode() const;

    /// An upper bound of the size of an index with these items, in bytes. Quick: does not read the texts.
    [[nodiscard]] static qsizetype upperBound(const QList<ShelfItem>& items);

    /// A closer upper bound. Slower: reads every character.
    [[nodiscard]] static qsizetype closeUpperBound(const QList<ShelfItem>& items);

    /// Reads an index that `encode` wrote. One bad item makes the whole index invalid.
    [[nodiscard]] static std::variant<ShelfIndex, Failure> decode(const QByteArray& bytes);

    bool operator==(const ShelfIndex&) const = default;
};

} // namespace nookle
