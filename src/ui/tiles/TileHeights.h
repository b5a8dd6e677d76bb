#pragma once

#include "ShelfItem.h"

#include <QHash>
#include <QString>
#include <QUuid>

namespace nookle {

class TileMetrics;

/// Caches the heights of all tiles. Measuring a name takes time, and most items stay the same from one change to the
/// next, so each is measured only once.
class TileHeights final {
public:
    /// `metrics` must outlive this object.
    explicit TileHeights(const TileMetrics& metrics);

    [[nodiscard]] int height(const ShelfItem& item, bool isUnavailable, int width);

    /// Empties the cache. Call it when the metrics have changed.
    void clear() { m_measured.clear(); }

    /// Empties the cache when it holds far more items than the `itemCount` that exist.
    void trim(qsizetype itemCount);

    [[nodiscard]] qsizetype measurements() const { return m_measurements; }

private:
    struct Measured {
        QString name;
        bool isUnavailable = false;
        int width = 0;
        int height = 0;
    };

    const TileMetrics& m_metrics;
    QHash<QUuid, Measured> m_measured;
    qsizetype m_measurements = 0;
};

} // namespace nookle
