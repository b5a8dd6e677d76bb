#pragma once

#include "ShelfItem.h"

#include <QHash>
#include <QString>
#include <QUuid>

namespace nookle {

class TileMetrics;

/// The heights of all tiles. Measuring a name takes time, and most items are the same from one change to the next, so
/// that each is measured once.
class TileHeights final {
public:
    /// `metrics` must outlive this object.
    explicit TileHeights(const TileMetrics& metrics);

    [[nodiscard]] int height(const ShelfItem& item, bool isUnavailable, int width);

    /// Forgets everything; the metrics have changed.
    void clear() { m_measured.clear(); }

    /// Forgets items that have gone, once they are more than those that are left.
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
