#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>

namespace nookle {

/// The region in which two pictures differ most.
struct RegionDifference {
    QRect region;
    /// The mean over its pixels, from 0 to 255, of the channel that differs most.
    double difference = 0;
};

[[nodiscard]] inline int pixelDifference(QRgb left, QRgb right)
{
    return std::max({ std::abs(qRed(left) - qRed(right)), std::abs(qGreen(left) - qGreen(right)),
                      std::abs(qBlue(left) - qBlue(right)), std::abs(qAlpha(left) - qAlpha(right)) });
}

[[nodiscard]] inline double meanDifference(const QImage& left, const QImage& right, const QRect& region)
{
    int sum = 0;
    for (int y = region.top(); y <= region.bottom(); ++y) {
        const auto* leftLine = reinterpret_cast<const QRgb*>(left.constScanLine(y)) + region.left();
        const auto* rightLine = reinterpret_cast<const QRgb*>(right.constScanLine(y)) + region.left();
        if (std::memcmp(leftLine, rightLine, static_cast<std::size_t>(region.width()) * sizeof(QRgb)) == 0)
            continue;
        for (int x = 0; x < region.width(); ++x)
            sum += pixelDifference(leftLine[x], rightLine[x]);
    }
    return static_cast<double>(sum) / (region.width() * region.height());
}

/// Compares two pictures by overlapping squares of that many pixels a side: what is small in the picture is large in
/// its region. Pictures of different sizes differ everywhere.
[[nodiscard]] inline RegionDifference largestRegionDifference(const QImage& left, const QImage& right, int side)
{
    constexpr double everything = 255;
    if (left.size() != right.size() || left.isNull())
        return { left.rect(), everything };
    // Where a pixel is nearly transparent, its colour alone would say little.
    const QImage leftPixels = left.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const QImage rightPixels = right.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    RegionDifference largest;
    const int step = std::max(side / 2, 1);
    for (int y = 0; y < left.height(); y += step) {
        for (int x = 0; x < left.width(); x += step) {
            const QRect region = QRect(x, y, side, side).intersected(left.rect());
            const double difference = meanDifference(leftPixels, rightPixels, region);
            if (difference > largest.difference)
                largest = { region, difference };
        }
    }
    return largest;
}

} // namespace nookle
