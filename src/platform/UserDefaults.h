#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

namespace nookle {

/// The user's settings, a persistent store of keys and values. Main thread only.
class UserDefaults {
public:
    virtual ~UserDefaults() = default;

    /// Sets the values for keys that were never written, or whose stored value has another type than requested.
    virtual void registerDefaults(const QVariantMap& defaults) = 0;

    /// The stored value, else the registered default, else false.
    [[nodiscard]] virtual bool boolean(const QString& forKey) const = 0;

    /// The stored value, else the registered default, else 0.
    [[nodiscard]] virtual qint64 integer(const QString& forKey) const = 0;

    /// Writes through to disk at once.
    virtual void set(bool value, const QString& forKey) = 0;
    virtual void set(qint64 value, const QString& forKey) = 0;

    /// The text under `key` in the group `domain`, or in no group if `domain` is empty; none when it is absent.
    [[nodiscard]] virtual std::optional<QString> string(const QString& domain, const QString& key) const = 0;
};

} // namespace nookle
