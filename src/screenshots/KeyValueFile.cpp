#include "KeyValueFile.h"

#include "RegularFile.h"

#include <QList>

#include <unistd.h>

namespace nookle {

namespace {

inline constexpr qint64 greatestSize = 1 << 20;

/// The key without the flag in brackets behind it.
[[nodiscard]] QByteArray plainKey(const QByteArray& key)
{
    const qsizetype bracket = key.indexOf('[');
    return (bracket < 0 ? key : key.left(bracket)).trimmed();
}

} // namespace

KeyValueFile KeyValueFile::read(const QByteArray& path)
{
    const auto file = RegularFile::open(path, RegularFile::Links::follow);
    if (!file || file->size > greatestSize)
        return KeyValueFile({});
    QByteArray content(static_cast<qsizetype>(file->size), Qt::Uninitialized);
    const ssize_t size = ::read(file->descriptor.get(), content.data(), static_cast<size_t>(content.size()));
    return KeyValueFile(content.left(size < 0 ? 0 : static_cast<qsizetype>(size)));
}

KeyValueFile::KeyValueFile(const QByteArray& content)
    : m_content(content)
{
}

std::optional<QByteArray> KeyValueFile::value(const QByteArray& group, const QByteArray& key) const
{
    QByteArray current;
    const QList<QByteArray> lines = m_content.split('\n');
    for (const QByteArray& line : lines) {
        const QByteArray text = line.trimmed();
        if (text.startsWith('[') && text.endsWith(']')) {
            current = text.mid(1, text.size() - 2);
            continue;
        }
        const qsizetype sign = text.indexOf('=');
        if (sign > 0 && current == group && plainKey(text.left(sign)) == key)
            return text.mid(sign + 1).trimmed();
    }
    return std::nullopt;
}

} // namespace nookle
