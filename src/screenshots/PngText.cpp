#include "PngText.h"

#include "PictureFormat.h"

#include <QtEndian>

#include <unistd.h>

#include <array>

namespace nookle {

namespace {

inline constexpr qint64 signatureSize = 8;

inline constexpr qint64 headSize = 8;
inline constexpr qint64 checksumSize = 4;
inline constexpr quint32 greatestLength = 0x7fffffff;
/// In bytes. No tool marks its pictures with a longer text.
inline constexpr quint32 longestText = 4096;
/// More than the largest screenshot has. A hostile file may consist of endless empty chunks.
inline constexpr int mostChunks = 100000;

struct ChunkHead {
    quint32 length;
    QByteArray type;
};

[[nodiscard]] QByteArray readAt(int descriptor, qint64 offset, qint64 size)
{
    QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
    const ssize_t read = ::pread(descriptor, bytes.data(), static_cast<size_t>(size), offset);
    bytes.truncate(read < 0 ? 0 : static_cast<qsizetype>(read));
    return bytes;
}

[[nodiscard]] std::optional<ChunkHead> readHead(int descriptor, qint64 offset)
{
    const QByteArray bytes = readAt(descriptor, offset, headSize);
    if (bytes.size() < headSize)
        return std::nullopt;
    const auto length = qFromBigEndian<quint32>(bytes.constData());
    return length > greatestLength ? std::nullopt : std::optional(ChunkHead{ length, bytes.mid(4) });
}

/// The text of an international text chunk, given the bytes behind its key; empty if it is compressed.
[[nodiscard]] QByteArray internationalText(const QByteArray& rest)
{
    const bool isCompressed = rest.size() < 2 || rest.at(0) != 0;
    const qsizetype language = isCompressed ? -1 : rest.indexOf('\0', 2);
    const qsizetype translatedKey = language < 0 ? -1 : rest.indexOf('\0', language + 1);
    return translatedKey < 0 ? QByteArray() : rest.mid(translatedKey + 1);
}

void addText(PngText& texts, const QByteArray& type, const QByteArray& content)
{
    const qsizetype end = content.indexOf('\0');
    if (end <= 0)
        return;
    const QByteArray rest = content.mid(end + 1);
    QByteArray& text = texts[content.left(end)];
    if (type == "tEXt")
        text = rest;
    else if (type == "iTXt")
        text = internationalText(rest);
}

} // namespace

std::optional<PngText> readPngText(int descriptor)
{
    if (!isPngStart(readAt(descriptor, 0, signatureSize)))
        return std::nullopt;
    PngText texts;
    qint64 offset = signatureSize;
    for (int count = 0; count < mostChunks; ++count) {
        const auto head = readHead(descriptor, offset);
        if (!head)
            return std::nullopt;
        if (head->type == "IEND")
            return texts;
        const bool isText = head->type == "tEXt" || head->type == "iTXt" || head->type == "zTXt";
        if (isText && head->length <= longestText)
            addText(texts, head->type, readAt(descriptor, offset + headSize, head->length));
        offset += headSize + head->length + checksumSize;
    }
    return std::nullopt;
}

} // namespace nookle
