#pragma once

#include <cstddef>
#include <vector>

namespace nookle {

/// The positions of the tiles in a column: one below the other, with a margin around the column and a gap between
/// tiles.
class TileLayout {
public:
    struct Range {
        std::size_t first = 0;
        /// One past the last.
        std::size_t end = 0;

        bool operator==(const Range&) const = default;
    };

    TileLayout() = default;
    TileLayout(const std::vector<int>& heights, int margin, int gap);

    [[nodiscard]] std::size_t count() const { return m_bottoms.size(); }
    [[nodiscard]] int top(std::size_t row) const;
    [[nodiscard]] int height(std::size_t row) const { return m_bottoms[row] - top(row); }

    /// The height of the whole column with its margins; 0 when it is empty.
    [[nodiscard]] int totalHeight() const;

    /// The tiles that are at least partly between the vertical positions `upper` and `lower`.
    [[nodiscard]] Range rowsBetween(int upper, int lower) const;

private:
    std::vector<int> m_bottoms;
    int m_margin = 0;
    int m_gap = 0;
};

} // namespace nookle
