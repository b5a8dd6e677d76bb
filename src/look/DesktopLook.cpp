#include "DesktopLook.h"

#include "FontDescription.h"

#include <QDBusArgument>
#include <QRegularExpression>

#include <algorithm>

namespace nookle {

namespace {

const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");
const QString plasmaIcons = QStringLiteral("org.kde.kdeglobals.Icons");
const QString plasmaFonts = QStringLiteral("org.kde.kdeglobals.General");
constexpr uint prefersDark = 1;
constexpr uint prefersLight = 2;

[[nodiscard]] QVariant value(const PortalSettings& portal, const QString& group, const char* key)
{
    return portal.value(group).value(QLatin1String(key));
}

[[nodiscard]] std::optional<QString> text(const QVariant& value)
{
    const QString text = value.toString();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

/// The toolkit's setting, which the desktop at hand makes; else that of the portal, which may be a default.
[[nodiscard]] std::optional<QString> text(const ToolkitSettings::Values& toolkit, const char* name,
                                          const QVariant& otherwise)
{
    const std::optional<QString> own = text(toolkit.value(name));
    return own ? own : text(otherwise);
}

[[nodiscard]] bool isForText(double points)
{
    constexpr double smallest = 4;
    constexpr double largest = 40;
    return points >= smallest && points <= largest;
}

/// The font of a description in the toolkit's own form, as Plasma keeps it.
[[nodiscard]] std::optional<QFont> plasmaFont(const PortalSettings& portal)
{
    const std::optional<QString> description = text(value(portal, plasmaFonts, "font"));
    QFont font;
    if (!description || !font.fromString(*description) || !isForText(font.pointSizeF()))
        return std::nullopt;
    // A style that has a name takes no other weight, and some texts are bold.
    font.setStyleName({});
    return font;
}

/// The font of a description such as "Noto Sans 10". None if the size is missing or no size for a text.
[[nodiscard]] std::optional<QFont> namedFont(const std::optional<QString>& description)
{
    const std::optional<QFont> font = describedFont(description.value_or(QString()));
    return font && isForText(font->pointSizeF()) ? font : std::nullopt;
}

/// Whether the name of a theme says that its windows are dark. In those that are "darker" only the titles are.
[[nodiscard]] bool isDarkTheme(const QString& name)
{
    static const QRegularExpression dark(QStringLiteral("dark(?!er)"), QRegularExpression::CaseInsensitiveOption);
    return name.contains(dark);
}

// Desktops without a preference of their own have themes instead.
[[nodiscard]] std::optional<bool> isDark(const PortalSettings& portal, const ToolkitSettings::Values& toolkit)
{
    const uint preference = value(portal, appearance, "color-scheme").toUInt();
    if (preference == prefersDark || preference == prefersLight)
        return preference == prefersDark;
    const auto theme = text(toolkit, "Net/ThemeName", value(portal, gnome, "gtk-theme"));
    return theme ? std::optional(isDarkTheme(*theme)) : std::nullopt;
}

/// Three numbers from 0 to 1. Others mean that the desktop has no accent color.
[[nodiscard]] std::optional<QColor> accent(const QVariant& value)
{
    if (!value.canConvert<QDBusArgument>())
        return std::nullopt;
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("(ddd)"))
        return std::nullopt;
    double parts[3] = {};
    argument.beginStructure();
    argument >> parts[0] >> parts[1] >> parts[2];
    argument.endStructure();
    const bool isColor =
        std::all_of(std::begin(parts), std::end(parts), [](double part) { return part >= 0 && part <= 1; });
    if (!isColor)
        return std::nullopt;
    return QColor::fromRgbF(static_cast<float>(parts[0]), static_cast<float>(parts[1]), static_cast<float>(parts[2]));
}

[[nodiscard]] bool wantsMotion(const PortalSettings& portal, const ToolkitSettings::Values& toolkit)
{
    return toolkit.value("Gtk/EnableAnimations", 1).toInt() != 0
        && portal.value(gnome).value(QStringLiteral("enable-animations"), true).toBool()
        && value(portal, appearance, "reduced-motion").toUInt() != 1;
}

} // namespace

DesktopLook desktopLook(const PortalSettings& portal, const ToolkitSettings::Values& toolkit)
{
    DesktopLook look;
    look.isDark = isDark(portal, toolkit);
    look.hasHighContrast = value(portal, appearance, "contrast").toUInt() == 1;
    look.wantsMotion = wantsMotion(portal, toolkit);
    look.accent = accent(value(portal, appearance, "accent-color"));
    look.iconTheme = text(value(portal, plasmaIcons, "Theme"));
    if (!look.iconTheme)
        look.iconTheme = text(toolkit, "Net/IconThemeName", value(portal, gnome, "icon-theme"));
    look.font = plasmaFont(portal);
    if (!look.font)
        look.font = namedFont(text(toolkit, "Gtk/FontName", value(portal, gnome, "font-name")));
    return look;
}

} // namespace nookle
