#include "SelectedPalette.h"

#include "Colors.h"

#include <QColor>

#include <algorithm>
#include <cmath>

namespace nookle {

namespace {

inline constexpr double leastContrast = 3;
inline constexpr double leastTextContrast = 4.5;
inline constexpr int mixingSteps = 10;

/// From 0 for black to 1 for white, as the eye sees it.
[[nodiscard]] double luminance(const QColor& color)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

/// From 1 for the same lightness to 21 for black and white.
[[nodiscard]] double contrast(const QColor& one, const QColor& other)
{
    const auto [darker, lighter] = std::minmax({ luminance(one), luminance(other) });
    return (lighter + 0.05) / (darker + 0.05);
}

/// `share` is from 0 for `from` to 1 for `to`.
[[nodiscard]] QColor mixed(const QColor& from, const QColor& to, float share)
{
    const auto part = [share](float one, float other) { return one + (other - one) * share; };
    return QColor::fromRgbF(part(from.redF(), to.redF()), part(from.greenF(), to.greenF()),
                            part(from.blueF(), to.blueF()));
}

/// The panel with a little of the accent in it. Icons, many of which have the colour of the accent, stand out from it.
[[nodiscard]] QColor selectedGround(const QPalette& palette)
{
    constexpr float share = 0.2F;
    return mixed(palette.color(QPalette::Window), accentColor(palette), share);
}

[[nodiscard]] QColor selectedLine(const QPalette& palette, const QColor& ground)
{
    const QColor panel = palette.color(QPalette::Window);
    const auto isSeen = [&](const QColor& line) {
        return contrast(line, panel) >= leastContrast && contrast(line, ground) >= leastContrast;
    };
    QColor line = accentColor(palette);
    for (int step = 1; step <= mixingSteps && !isSeen(line); ++step)
        line = mixed(accentColor(palette), primaryColor(palette), static_cast<float>(step) / mixingSteps);
    return line;
}

[[nodiscard]] QColor textOn(const QColor& ground, const QPalette& palette)
{
    if (contrast(primaryColor(palette), ground) >= leastTextContrast)
        return primaryColor(palette);
    const QColor white(Qt::white);
    const QColor black(Qt::black);
    return contrast(white, ground) >= contrast(black, ground) ? white : black;
}

} // namespace

QPalette selectedPalette(const QPalette& palette)
{
    const QColor ground = selectedGround(palette);
    QPalette selected = palette;
    selected.setColor(QPalette::Window, ground);
    selected.setColor(QPalette::WindowText, textOn(ground, palette));
    selected.setColor(QPalette::Highlight, selectedLine(palette, ground));
    return selected;
}

} // namespace nookle
