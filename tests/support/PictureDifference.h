#pragma once

#include <QColor>
#include <QImage>

#include <algorithm>
#include <cstdlib>

namespace nookle {

/// The part of the pixels, from 0 to 1, that differ by more than a rounding error. Pictures of different sizes differ
/// everywhere.
[[nodiscard]] inline double pictureDifference(const QImage& left, const QImage& right)
{
    if (left.size() != right.size() || left.isNull())
        return 1;
    constexpr int tolerance = 24;
    int differing = 0;
    for (int y = 0; y < left.height(); ++y) {
        for (int x = 0; x < left.width(); ++x) {
            const QColor a = left.pixelColor(x, y);
            const QColor b = right.pixelColor(x, y);
            const int distance = std::max({ std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                                            std::abs(a.blue() - b.blue()), std::abs(a.alpha() - b.alpha()) });
            differing += distance > tolerance ? 1 : 0;
        }
    }
    return static_cast<double>(differing) / (static_cast<double>(left.width()) * left.height());
}

} // namespace nookle
