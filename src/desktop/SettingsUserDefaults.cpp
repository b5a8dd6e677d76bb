#include "SettingsUserDefaults.h"

#include "Log.h"

#include <QFile>
#include <QStandardPaths>

#include <sys/stat.h>

namespace nookle {

namespace {

/// The value as a single text. None for a list, which QSettings makes of a text with unquoted commas.
[[nodiscard]] std::optional<QString> text(const QVariant& value)
{
    const bool isSingle = value.isValid() && value.typeId() != QMetaType::QStringList && value.canConvert<QString>();
    return isSingle ? std::optional(value.toString()) : std::nullopt;
}

[[nodiscard]] std::optional<bool> asBoolean(const QVariant& value)
{
    const auto stored = text(value);
    if (stored == QLatin1String("true"))
        return true;
    if (stored == QLatin1String("false"))
        return false;
    return std::nullopt;
}

[[nodiscard]] std::optional<qint64> asInteger(const QVariant& value)
{
    bool isNumber = false;
    const qint64 number = text(value).value_or(QString()).toLongLong(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

/// Reading a pipe would wait for its other end. For a special file, returns a path below it, which can be neither read
/// nor written.
[[nodiscard]] QString withoutWaiting(const QString& path)
{
    struct stat status {};
    const bool isFound = ::stat(QFile::encodeName(path).constData(), &status) == 0;
    const bool isSpecial = isFound && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
    return isSpecial ? path + QStringLiteral("/none") : path;
}

[[nodiscard]] QString description(QSettings::Status status)
{
    return status == QSettings::FormatError ? QStringLiteral("the file is malformed")
                                            : QStringLiteral("the file cannot be written");
}

} // namespace

SettingsUserDefaults::SettingsUserDefaults(const QString& path)
    : m_path(path)
    , m_settings(withoutWaiting(path), QSettings::IniFormat)
{
}

QString SettingsUserDefaults::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QStringLiteral("/Nookle/Nookle.conf");
}

void SettingsUserDefaults::registerDefaults(const QVariantMap& defaults)
{
    m_defaults.insert(defaults);
}

bool SettingsUserDefaults::boolean(const QString& forKey) const
{
    const auto registered = asBoolean(m_defaults.value(forKey));
    return asBoolean(m_settings.value(forKey)).value_or(registered.value_or(false));
}

qint64 SettingsUserDefaults::integer(const QString& forKey) const
{
    const auto registered = asInteger(m_defaults.value(forKey));
    return asInteger(m_settings.value(forKey)).value_or(registered.value_or(0));
}

void SettingsUserDefaults::set(bool value, const QString& forKey)
{
    write(forKey, value);
}

void SettingsUserDefaults::set(qint64 value, const QString& forKey)
{
    write(forKey, value);
}

std::optional<QString> SettingsUserDefaults::string(const QString& domain, const QString& key) const
{
    const QString path = domain.isEmpty() ? key : QString(domain + QLatin1Char('/') + key);
    const QVariant value = m_settings.value(path);
    if (value.typeId() == QMetaType::QStringList)
        reportList(path);
    return text(value);
}

void SettingsUserDefaults::reportList(const QString& key) const
{
    if (m_reportedLists.contains(key))
        return;
    m_reportedLists.insert(key);
    logLine(QStringLiteral("the setting \"%1\" is ignored: a text with a comma needs quotation marks").arg(key));
}

void SettingsUserDefaults::write(const QString& key, const QVariant& value)
{
    // Uses a second object on the same file, because `m_settings` would keep the status of its first failure for ever.
    QSettings writer(withoutWaiting(m_path), QSettings::IniFormat);
    writer.setValue(key, value);
    writer.sync();
    report(writer.status());
}

void SettingsUserDefaults::report(QSettings::Status status)
{
    const Saving saving = status == QSettings::NoError ? Saving::works : Saving::fails;
    if (saving == Saving::fails && m_saving == Saving::works)
        logLine(QStringLiteral("could not save settings: %1: %2").arg(m_path, description(status)));
    m_saving = saving;
}

} // namespace nookle
