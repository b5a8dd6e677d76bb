#include "WindowScale.h"

namespace nookle {

namespace {

/// Beyond that nothing would fit on a display.
inline constexpr int largestScale = 8;

} // namespace

int windowScale(const ToolkitSettings::Values& settings)
{
    const int scale = settings.value("Gdk/WindowScalingFactor").toInt();
    // Desktops that enlarge the resolution by the factor, here or among the server's resources, tell what it was
    // before. Xfce does not.
    const bool isInResolution = settings.contains("Gdk/UnscaledDPI");
    return scale >= 1 && scale <= largestScale && !isInResolution ? scale : 1;
}

std::optional<int> resolutionInstead(const ToolkitSettings::Values& settings)
{
    constexpr int usual = 96;
    constexpr int smallest = usual / 2;
    constexpr int largest = usual * largestScale;
    // In 1,024ths of a dot.
    const QVariant resolution = settings.value("Xft/DPI");
    bool isNumber = false;
    const int dots = resolution.toInt(&isNumber) / 1024;
    if (!isNumber || (dots >= smallest && dots <= largest))
        return std::nullopt;
    return usual;
}

} // namespace nookle
