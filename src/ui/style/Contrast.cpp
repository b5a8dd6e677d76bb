#include "Contrast.h"

#include <algorithm>
#include <cmath>

namespace nookle {

namespace {

inline constexpr int mixingSteps = 10;

/// From 0 for black to 1 for white, as the eye sees it.
[[nodiscard]] double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

} // namespace

double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({ luminance(one), luminance(other) });
    return (lighter + 0.05) / (darker + 0.05);
}

QColor mixed(const QColor& from, const QColor& to, float share)
{
    const auto part = [share](float one, float other) { return one + (other - one) * share; };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()));
}

QColor strengthened(const QColor& color, const QColor& stronger, const QColor& ground, double least)
{
    const QColor first = mixed(ground, color, color.alphaF());
    QColor result = first;
    for (int step = 1; step <= mixingSteps && contrast(result, ground) < least; ++step)
        result = mixed(first, stronger, static_cast<float>(step) / mixingSteps);
    return result;
}

} // namespace nookle
