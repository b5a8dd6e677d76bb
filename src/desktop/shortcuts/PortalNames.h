#pragma once

#include <QString>

namespace nookle {

[[nodiscard]] inline QString portalService()
{
    return QStringLiteral("org.freedesktop.portal.Desktop");
}

[[nodiscard]] inline QString portalPath()
{
    return QStringLiteral("/org/freedesktop/portal/desktop");
}

[[nodiscard]] inline QString shortcutsInterface()
{
    return QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
}

} // namespace nookle
