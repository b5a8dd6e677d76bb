#include "DesktopBackendFactory.h"

#include "Log.h"
#include "X11Backend.h"

namespace nookle {

std::optional<Failure> selectDesktopBackend()
{
    if (!X11Backend::isServerRunning())
        return Failure{
            QStringLiteral("no X11 display can be opened (DISPLAY is \"%1\")").arg(qEnvironmentVariable("DISPLAY"))
        };
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY"))
        logLine(QStringLiteral("this is a Wayland session: running on X11 through XWayland"));
    qputenv("QT_QPA_PLATFORM", "xcb");
    return std::nullopt;
}

std::unique_ptr<DesktopBackend> makeDesktopBackend()
{
    return std::make_unique<X11Backend>();
}

} // namespace nookle
