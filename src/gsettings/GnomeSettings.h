#pragma once

#include <QByteArray>
#include <QList>

#include <memory>
#include <optional>

namespace nookle {

/// The settings of one schema of GNOME, with the schema's defaults. Each value is read anew. The session bus is not
/// used: GSettings itself connects to it to be told of changes, and GLib then ends the program when the bus dies.
class GnomeSettings final {
public:
    /// None when the schema is not installed, or has no fixed place.
    [[nodiscard]] static std::optional<GnomeSettings> tryOpen(const char* schema);

    GnomeSettings(GnomeSettings&& other) noexcept;
    GnomeSettings& operator=(GnomeSettings&& other) noexcept;
    ~GnomeSettings();

    /// Empty, here and below, when the schema has no such key, or one of another type.
    [[nodiscard]] QByteArray text(const char* key) const;
    [[nodiscard]] QList<QByteArray> texts(const char* key) const;
    /// 0 instead of empty.
    [[nodiscard]] int number(const char* key) const;

private:
    class Schema;

    explicit GnomeSettings(std::unique_ptr<Schema> schema);

    std::unique_ptr<Schema> m_schema;
};

} // namespace nookle
