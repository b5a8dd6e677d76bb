#include "WindowScale.h"

namespace nookle {

int windowScale(const ToolkitSettings::Values& settings)
{
    // Beyond that nothing would fit on a display.
    constexpr int largest = 8;
    const int scale = settings.value("Gdk/WindowScalingFactor").toInt();
    const int resolution = settings.value("Xft/DPI").toInt();
    // Desktops that enlarge the resolution by the factor tell here what it was before. Xfce does not.
    const int before = settings.value("Gdk/UnscaledDPI", resolution).toInt();
    const bool isInResolution = resolution > before;
    return scale >= 1 && scale <= largest && !isInResolution ? scale : 1;
}

} // namespace nookle
