#include "GnomeSettings.h"

// The header wants this from code that calls a backend itself.
#define G_SETTINGS_ENABLE_BACKEND
#include <gio/gio.h>
#include <gio/gsettingsbackend.h>

#include <utility>

namespace nookle {

namespace {

struct Release {
    void operator()(GSettingsBackend* backend) const { g_object_unref(backend); }
    void operator()(GSettingsSchema* schema) const { g_settings_schema_unref(schema); }
    void operator()(GSettingsSchemaKey* key) const { g_settings_schema_key_unref(key); }
    void operator()(GVariant* value) const { g_variant_unref(value); }
    void operator()(const char** texts) const { g_free(texts); }
};

using Value = std::unique_ptr<GVariant, Release>;

/// What the user or the administrator has set; null when nobody has.
[[nodiscard]] Value readSet(const QByteArray& path, const GVariantType* type)
{
    const std::unique_ptr<GSettingsBackend, Release> backend(g_settings_backend_get_default());
    GVariant* value = G_SETTINGS_BACKEND_GET_CLASS(backend.get())->read(backend.get(), path.constData(), type, FALSE);
    return Value(value != nullptr ? g_variant_take_ref(value) : nullptr);
}

} // namespace

class GnomeSettings::Schema {
public:
    explicit Schema(GSettingsSchema* schema)
        : m_schema(schema)
    {
    }

    /// Null when the schema has no key of that name and type.
    [[nodiscard]] Value value(const char* name, const char* type) const
    {
        // GLib ends a program that asks for a key that the schema does not have.
        if (g_settings_schema_has_key(m_schema.get(), name) == FALSE)
            return nullptr;
        const std::unique_ptr<GSettingsSchemaKey, Release> key(g_settings_schema_get_key(m_schema.get(), name));
        const GVariantType* const keyType = g_settings_schema_key_get_value_type(key.get());
        if (g_variant_type_equal(keyType, type) == FALSE)
            return nullptr;
        Value set = readSet(QByteArray(g_settings_schema_get_path(m_schema.get())) + name, keyType);
        const bool isValid = set && g_variant_is_of_type(set.get(), keyType) != FALSE
            && g_settings_schema_key_range_check(key.get(), set.get()) != FALSE;
        return isValid ? std::move(set) : Value(g_settings_schema_key_get_default_value(key.get()));
    }

private:
    std::unique_ptr<GSettingsSchema, Release> m_schema;
};

std::optional<GnomeSettings> GnomeSettings::tryOpen(const char* schema)
{
    GSettingsSchemaSource* const source = g_settings_schema_source_get_default();
    GSettingsSchema* const found = source != nullptr ? g_settings_schema_source_lookup(source, schema, TRUE) : nullptr;
    if (found == nullptr)
        return std::nullopt;
    auto owned = std::make_unique<Schema>(found);
    return g_settings_schema_get_path(found) != nullptr ? std::optional(GnomeSettings(std::move(owned))) : std::nullopt;
}

GnomeSettings::GnomeSettings(std::unique_ptr<Schema> schema)
    : m_schema(std::move(schema))
{
}

GnomeSettings::GnomeSettings(GnomeSettings&& other) noexcept = default;
GnomeSettings& GnomeSettings::operator=(GnomeSettings&& other) noexcept = default;
GnomeSettings::~GnomeSettings() = default;

QByteArray GnomeSettings::text(const char* key) const
{
    const Value value = m_schema->value(key, "s");
    return value ? QByteArray(g_variant_get_string(value.get(), nullptr)) : QByteArray();
}

QList<QByteArray> GnomeSettings::texts(const char* key) const
{
    const Value value = m_schema->value(key, "as");
    if (!value)
        return {};
    gsize count = 0;
    const std::unique_ptr<const char*, Release> texts(g_variant_get_strv(value.get(), &count));
    return { texts.get(), texts.get() + count };
}

int GnomeSettings::number(const char* key) const
{
    const Value value = m_schema->value(key, "i");
    return value ? g_variant_get_int32(value.get()) : 0;
}

} // namespace nookle
