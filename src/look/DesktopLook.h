#pragma once

#include "ToolkitSettings.h"

#include <QColor>
#include <QFont>
#include <QMap>
#include <QString>
#include <QVariantMap>

#include <optional>

namespace nookle {

/// What the desktop says about the look of programs. What is not there is the toolkit's affair.
struct DesktopLook {
    std::optional<bool> isDark = {};
    bool hasHighContrast = false;
    bool wantsMotion = true;
    std::optional<QColor> accent = {};
    std::optional<QString> iconTheme = {};
    std::optional<QFont> font = {};

    bool operator==(const DesktopLook&) const = default;
};

/// The settings of the portal by group and key.
using PortalSettings = QMap<QString, QVariantMap>;

/// What Plasma says of its icons and its font comes first. On other desktops leave its groups out of `portal`.
/// Where the desktop has colours of its own for all toolkits, as Plasma has, the name of a theme says nothing about
/// them: leave it out of `toolkit`, and the settings of another desktop out of `portal`.
[[nodiscard]] DesktopLook desktopLook(const PortalSettings& portal, const ToolkitSettings::Values& toolkit);

} // namespace nookle
