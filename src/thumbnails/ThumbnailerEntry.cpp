#include "ThumbnailerEntry.h"

#include "CommandLine.h"

#include <QStandardPaths>

#include <glib.h>

#include <memory>

namespace nookle {

namespace {

struct Release {
    void operator()(char* text) const { g_free(text); }
    void operator()(GKeyFile* file) const { g_key_file_free(file); }
};

using KeyFile = std::unique_ptr<GKeyFile, Release>;

[[nodiscard]] QString value(const KeyFile& file, const char* key)
{
    const std::unique_ptr<char, Release> text(g_key_file_get_string(file.get(), "Thumbnailer Entry", key, nullptr));
    return QString::fromUtf8(text.get()).trimmed();
}

} // namespace

std::optional<ThumbnailerEntry> ThumbnailerEntry::parse(const QByteArray& content)
{
    const KeyFile file(g_key_file_new());
    if (g_key_file_load_from_data(file.get(), content.constData(), gsize(content.size()), G_KEY_FILE_NONE, nullptr)
        == FALSE)
        return std::nullopt;
    const auto command = commandWords(value(file, "Exec"));
    const QStringList types = value(file, "MimeType").split(u';', Qt::SkipEmptyParts);
    if (!command || types.isEmpty())
        return std::nullopt;
    ThumbnailerEntry entry{ *command, value(file, "TryExec"), QStringList() };
    for (const QString& type : types)
        entry.mimeTypes.append(type.trimmed());
    return entry;
}

bool ThumbnailerEntry::isInstalled() const
{
    return tryExec.isEmpty() || !QStandardPaths::findExecutable(tryExec).isEmpty();
}

} // namespace nookle
