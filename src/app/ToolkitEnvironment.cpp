#include "ToolkitEnvironment.h"

#include <algorithm>
#include <iterator>

namespace nookle {

namespace {

inline constexpr const char* resolution = "QT_FONT_DPI";
inline constexpr const char* gtkScale = "GDK_SCALE";

/// Whether the user, or a part of the session, has told the toolkit about scaling.
[[nodiscard]] bool isScaleGiven()
{
    constexpr const char* names[] = { "QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_ENABLE_HIGHDPI_SCALING",
                                      "QT_USE_PHYSICAL_DPI", resolution };
    return std::any_of(std::begin(names), std::end(names),
                       [](const char* name) { return !qEnvironmentVariableIsEmpty(name); });
}

} // namespace

ToolkitEnvironment::Variable::Variable(const char* name, const std::optional<QByteArray>& value)
    : m_name(name)
{
    if (qEnvironmentVariableIsSet(name))
        m_previous = qgetenv(name);
    if (value)
        qputenv(name, *value);
    else
        qunsetenv(name);
}

ToolkitEnvironment::Variable::~Variable()
{
    if (m_previous)
        qputenv(m_name, *m_previous);
    else
        qunsetenv(m_name);
}

// The GTK of the desktop's look would connect to the compositor by itself, and end the program with it at once. And it
// would divide by the factor of the settings, which may be zero. The program shows no window of GTK's. Plasma tells the
// toolkit to wait for another compositor when one has died, but then it crashes with the shelf's windows.
ToolkitEnvironment::ToolkitEnvironment(const BackendChoice& choice, const ToolkitScale& scale)
    : m_platform("QT_QPA_PLATFORM", choice.toolkitPlatform())
    , m_reconnect("QT_WAYLAND_RECONNECT", std::nullopt)
{
    if (choice.kind == DesktopKind::xwayland)
        m_gtkBackend.emplace("GDK_BACKEND", "x11");
    if (qEnvironmentVariableIsEmpty(gtkScale))
        m_gtkScale.emplace(gtkScale, "1");
    if (scale.windows > 1 && !isScaleGiven())
        m_scale.emplace("QT_SCALE_FACTOR", QByteArray::number(scale.windows));
    if (scale.resolution && qEnvironmentVariableIsEmpty(resolution))
        m_resolution.emplace(resolution, QByteArray::number(*scale.resolution));
}

ToolkitEnvironment::~ToolkitEnvironment() = default;

} // namespace nookle
