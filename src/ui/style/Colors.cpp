#include "Colors.h"

#include "Contrast.h"

namespace nookle {

namespace {

inline constexpr float secondaryOpacity = 0.6F;
inline constexpr float quaternaryOpacity = 0.18F;
inline constexpr float outlineOpacity = 0.24F;

[[nodiscard]] QColor faded(QColor color, float opacity)
{
    color.setAlphaF(opacity);
    return color;
}

} // namespace

QColor primaryColor(const QPalette& palette)
{
    return palette.color(QPalette::WindowText);
}

QColor secondaryColor(const QPalette& palette)
{
    return faded(primaryColor(palette), secondaryOpacity);
}

QColor explanationColor(const QPalette& palette)
{
    // On the window itself a little more than is needed on the darker ground.
    constexpr double leastContrast = 5;
    return strengthened(palette.color(QPalette::PlaceholderText), primaryColor(palette),
                        palette.color(QPalette::Window), leastContrast);
}

QColor quaternaryColor(const QPalette& palette)
{
    return faded(primaryColor(palette), quaternaryOpacity);
}

QColor outlineColor(const QPalette& palette)
{
    return faded(primaryColor(palette), outlineOpacity);
}

QColor accentColor(const QPalette& palette)
{
    return palette.color(QPalette::Highlight);
}

QColor cardColor(const QPalette& palette)
{
    return palette.color(QPalette::Base);
}

} // namespace nookle
