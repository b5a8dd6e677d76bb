#include "ScreenshotLocations.h"

#include "FileUrl.h"
#include "KeyValueFile.h"
#include "RegularFile.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QStandardPaths>

#include <gio/gio.h>

#include <memory>

namespace nookle {

namespace {

struct Release {
    void operator()(GSettings* settings) const { g_object_unref(settings); }
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
    void operator()(char* text) const { g_free(text); }
};

[[nodiscard]] QByteArray location(QStandardPaths::StandardLocation which)
{
    return QFile::encodeName(QStandardPaths::writableLocation(which));
}

[[nodiscard]] QByteArray gnomeScreenshotFolder()
{
    constexpr const char* name = "org.gnome.gnome-screenshot";
    constexpr const char* key = "auto-save-directory";
    // Requesting the settings of a schema that is not installed would abort the program.
    GSettingsSchemaSource* source = g_settings_schema_source_get_default();
    const std::unique_ptr<GSettingsSchema, Release> schema(
        source != nullptr ? g_settings_schema_source_lookup(source, name, TRUE) : nullptr);
    if (!schema || g_settings_schema_has_key(schema.get(), key) == FALSE)
        return {};
    const std::unique_ptr<GSettings, Release> settings(g_settings_new(name));
    const std::unique_ptr<char, Release> folder(g_settings_get_string(settings.get(), key));
    return folder.get();
}

/// The name of the folder that GNOME's own tool uses, in the user's language.
[[nodiscard]] QByteArray translatedScreenshots()
{
    return g_dgettext("gnome-shell", "Screenshots");
}

[[nodiscard]] QByteArray spectacleFolder(const QByteArray& configFolder)
{
    const KeyValueFile settings = KeyValueFile::read(configFolder + "/spectaclerc");
    return settings.value("ImageSave", "imageSaveLocation")
        .value_or(settings.value("Save", "defaultSaveLocation").value_or(QByteArray()));
}

[[nodiscard]] QByteArray xfceFolder(const QByteArray& configFolder)
{
    const KeyValueFile settings = KeyValueFile::read(configFolder + "/xfce4/xfce4-screenshooter");
    return settings.value({}, "screenshot_dir").value_or(QByteArray());
}

[[nodiscard]] QByteArray flameshotFolder(const QByteArray& configFolder)
{
    const QByteArray path = configFolder + "/flameshot/flameshot.ini";
    // Checked first, because QSettings would wait for the other end of a pipe.
    if (!RegularFile::open(path, RegularFile::Links::follow))
        return {};
    const QSettings settings(QFile::decodeName(path), QSettings::IniFormat);
    return QFile::encodeName(settings.value(QStringLiteral("savePath")).toString());
}

[[nodiscard]] QList<QByteArray> settingsOfTools(const ScreenshotEnvironment& environment)
{
    QList<QByteArray> settings;
    for (const QString& desktop : environment.desktops) {
        if (desktop == QLatin1String("KDE"))
            settings.append(spectacleFolder(environment.configFolder));
        else if (desktop == QLatin1String("XFCE"))
            settings.append(xfceFolder(environment.configFolder));
        else if (desktop == QLatin1String("GNOME") || desktop == QLatin1String("X-Cinnamon"))
            settings.append(gnomeScreenshotFolder());
    }
    settings.append(
        { flameshotFolder(environment.configFolder), environment.grimFolder, environment.screenshotsFolder });
    return settings;
}

} // namespace

ScreenshotEnvironment ScreenshotEnvironment::present()
{
    return { .home = QFile::encodeName(QDir::homePath()),
             .configFolder = location(QStandardPaths::GenericConfigLocation),
             .picturesFolder = location(QStandardPaths::PicturesLocation),
             .desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(QLatin1Char(':')),
             .grimFolder = qgetenv("GRIM_DEFAULT_DIR"),
             .screenshotsFolder = qgetenv("XDG_SCREENSHOTS_DIR") };
}

QByteArray expandedPath(const QByteArray& setting, const QByteArray& home)
{
    QByteArray path = setting;
    if (path.startsWith("file:")) {
        path.replace("$HOME", home);
        return filePath(QUrl::fromEncoded(path));
    }
    if (path == "~" || path.startsWith("~/"))
        path.replace(0, 1, home);
    if (path.startsWith("$HOME"))
        path.replace(0, 5, home);
    return path.startsWith('/') && !path.contains('\0') ? path : QByteArray();
}

QList<QByteArray> screenshotLocations(const ScreenshotEnvironment& environment)
{
    QList<QByteArray> locations;
    for (const QByteArray& setting : settingsOfTools(environment)) {
        const QByteArray path = expandedPath(setting, environment.home);
        if (!path.isEmpty())
            locations.append(path);
    }
    locations.append(environment.picturesFolder + '/' + translatedScreenshots());
    locations.append(environment.picturesFolder + "/Screenshots");
    return locations;
}

} // namespace nookle
