#include "SelectedPalette.h"

#include "Colors.h"
#include "Contrast.h"

#include <QColor>

namespace nookle {

namespace {

inline constexpr double leastContrast = 3;
inline constexpr double leastTextContrast = 4.5;
inline constexpr int mixingSteps = 10;

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
