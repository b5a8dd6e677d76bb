#include "SelectedPalette.h"

#include "Colors.h"

#include <QColor>

#include <algorithm>
#include <cmath>

namespace nookle {

namespace {

inline constexpr double leastContrast = 3;
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

[[nodiscard]] QColor selectedGround(const QPalette& palette)
{
    const QColor panel = palette.color(QPalette::Window);
    QColor ground = accentColor(palette);
    for (int step = 1; step <= mixingSteps && contrast(ground, panel) < leastContrast; ++step)
        ground = mixed(accentColor(palette), primaryColor(palette), static_cast<float>(step) / mixingSteps);
    return ground;
}

/// The desktop's own colour where it can be read, because the user knows the pair from everywhere else.
[[nodiscard]] QColor textOn(const QColor& ground, const QPalette& palette)
{
    const QColor usual = palette.color(QPalette::HighlightedText);
    if (contrast(usual, ground) >= leastContrast)
        return usual;
    const QColor white(Qt::white);
    const QColor black(Qt::black);
    return contrast(white, ground) >= contrast(black, ground) ? white : black;
}

} // namespace

QPalette selectedPalette(const QPalette& palette)
{
    const QColor ground = selectedGround(palette);
    const QColor text = textOn(ground, palette);
    QPalette selected = palette;
    selected.setColor(QPalette::Window, ground);
    selected.setColor(QPalette::WindowText, text);
    selected.setColor(QPalette::Highlight, text);
    return selected;
}

} // namespace nookle
