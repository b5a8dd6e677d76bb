#pragma once

#include "UserDefaults.h"

#include <QStringList>

namespace nookle {

/// Settings in memory; remembers every write.
class FakeUserDefaults : public UserDefaults {
public:
    void registerDefaults(const QVariantMap& defaults) override { registered.insert(defaults); }

    [[nodiscard]] bool boolean(const QString& forKey) const override { return value(forKey).toBool(); }
    [[nodiscard]] qint64 integer(const QString& forKey) const override { return value(forKey).toLongLong(); }

    void set(bool value, const QString& forKey) override { write(forKey, value); }
    void set(qint64 value, const QString& forKey) override { write(forKey, value); }

    [[nodiscard]] std::optional<QString> string(const QString& domain, const QString& key) const override
    {
        const QVariant found = stored.value(domain.isEmpty() ? key : QString(domain + QLatin1Char('/') + key));
        return found.isValid() ? std::optional(found.toString()) : std::nullopt;
    }

    QVariantMap registered;
    QVariantMap stored;
    QStringList writtenKeys;

private:
    [[nodiscard]] QVariant value(const QString& key) const { return stored.value(key, registered.value(key)); }

    void write(const QString& key, const QVariant& value)
    {
        stored.insert(key, value);
        writtenKeys.append(key);
    }
};

} // namespace nookle
