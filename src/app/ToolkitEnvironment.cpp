#include "ToolkitEnvironment.h"

namespace nookle {

ToolkitEnvironment::Variable::Variable(const char* name, const QByteArray& value)
    : m_name(name)
{
    if (qEnvironmentVariableIsSet(name))
        m_previous = qgetenv(name);
    qputenv(name, value);
}

ToolkitEnvironment::Variable::~Variable()
{
    if (m_previous)
        qputenv(m_name, *m_previous);
    else
        qunsetenv(m_name);
}

// The GTK of the desktop's look would connect to the compositor by itself, and end the program with it at once.
ToolkitEnvironment::ToolkitEnvironment(const BackendChoice& choice)
    : m_platform("QT_QPA_PLATFORM", choice.toolkitPlatform())
{
    if (choice.kind == DesktopKind::xwayland)
        m_gtkBackend.emplace("GDK_BACKEND", "x11");
}

ToolkitEnvironment::~ToolkitEnvironment() = default;

} // namespace nookle
