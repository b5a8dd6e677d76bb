#pragma once

#include "UserDefaults.h"

#include <QSet>
#include <QSettings>
#include <QString>
#include <QVariantMap>

#include <optional>

namespace nookle {

/// The settings file, which the user may edit. Values that cannot be written are kept in memory while the program runs.
/// Main thread only.
class SettingsUserDefaults final : public UserDefaults {
public:
    /// Keeps the settings in the INI file at `path`. The first write makes the file and its folders.
    explicit SettingsUserDefaults(const QString& path = defaultPath());

    /// The path of the user's settings file.
    [[nodiscard]] static QString defaultPath();

    void registerDefaults(const QVariantMap& defaults) override;
    bool boolean(const QString& forKey) const override;
    qint64 integer(const QString& forKey) const override;
    void set(bool value, const QString& forKey) override;
    void set(qint64 value, const QString& forKey) override;
    std::optional<QString> string(const QString& domain, const QString& key) const override;

private:
    enum class Saving { works, fails };

    void write(const QString& key, const QVariant& value);
    void report(QSettings::Status status);
    void reportList(const QString& key) const;

    QString m_path;
    /// Stays open so that it keeps values that could not be written.
    QSettings m_settings;
    QVariantMap m_defaults;
    Saving m_saving = Saving::works;
    /// The keys of texts that were read as lists, each reported once.
    mutable QSet<QString> m_reportedLists;
};

} // namespace nookle
