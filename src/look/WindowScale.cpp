#include "WindowScale.h"

namespace nookle {

int windowScale(const ToolkitSettings::Values& settings)
{
    // Beyond that nothing would fit on a display.
    constexpr int largest = 8;
    const int scale = settings.value("Gdk/WindowScalingFactor").toInt();
    // Desktops that enlarge the resolution by the factor, here or among the server's resources, tell what it was
    // before. Xfce does not.
    const bool isInResolution = settings.contains("Gdk/UnscaledDPI");
    return scale >= 1 && scale <= largest && !isInResolution ? scale : 1;
}

} // namespace nookle
