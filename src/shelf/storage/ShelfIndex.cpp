#include "ShelfIndex.h"

#include "IndexKeys.h"
#include "IndexReader.h"
#include "IndexText.h"
#include "Overloaded.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <numeric>

namespace nookle {

using namespace indexKeys;

namespace {

/// The size of JSON's longest escape of a character, in bytes.
inline constexpr qsizetype longestEscape = 6;

[[nodiscard]] QJsonObject json(const FileContent& file)
{
    return { { bookmarkKey, QString::fromLatin1(file.bookmark.toBase64()) }, { nameKey, file.name } };
}

[[nodiscard]] QJsonObject json(const LinkContent& link)
{
    QJsonObject object{ { hasIconKey, link.hasIcon }, { urlKey, link.url.absoluteString() } };
    if (link.title)
        object.insert(titleKey, *link.title);
    return object;
}

[[nodiscard]] QJsonObject json(const ShelfItem::Content& content)
{
    return std::visit(overloaded{
                          [](const FileContent& file) {
                              return QJsonObject{ { fileKey, json(file) } };
                          },
                          [](const TextContent& text) {
                              return QJsonObject{ { textKey, QJsonObject{ { textValueKey, text.text } } } };
                          },
                          [](const LinkContent& link) {
                              return QJsonObject{ { linkKey, json(link) } };
                          },
                          [](const ImageContent& image) {
                              return QJsonObject{ { imageKey, QJsonObject{ { fileNameKey, image.fileName } } } };
                          },
                      },
                      content);
}

[[nodiscard]] QJsonObject json(const ShelfItem& item)
{
    return { { idKey, uuidText(item.id) },
             { createdAtKey, dateText(item.createdAt) },
             { contentKey, json(item.content) },
             { pinnedKey, item.pinned } };
}

/// The maximum size of a text in JSON, in bytes.
[[nodiscard]] qsizetype closeLength(QStringView text)
{
    const auto lengthOf = [](QChar character) -> qsizetype {
        constexpr char16_t firstPrintable = 0x20;
        const char16_t code = character.unicode();
        if (code < firstPrintable || character.isSurrogate())
            return longestEscape;
        if (code == u'"' || code == u'\\')
            return 2;
        return code < 0x80 ? 1 : 3;
    };
    return std::accumulate(text.begin(), text.end(), qsizetype(0),
                           [&](qsizetype sum, QChar character) { return sum + lengthOf(character); });
}

[[nodiscard]] qsizetype roughLength(QStringView text)
{
    return longestEscape * text.size();
}

using Length = qsizetype (*)(QStringView);

/// The maximum size of the items. `length` gives that of each text.
[[nodiscard]] qsizetype bound(const QList<ShelfItem>& items, Length length)
{
    // For brackets, keys, dates and ids.
    constexpr qsizetype restOfAnItem = 330;
    constexpr qsizetype frame = 45;
    const auto lengthOf = overloaded{
        [length](const FileContent& file) { return length(file.name) + 2 * file.bookmark.size(); },
        [length](const TextContent& text) { return length(text.text); },
        [length](const LinkContent& link) {
            constexpr qsizetype titleMember = 40;
            return length(link.url.absoluteString()) + (link.title ? titleMember + length(*link.title) : 0);
        },
        [length](const ImageContent& image) { return length(image.fileName); },
    };
    return std::accumulate(items.begin(), items.end(), frame, [&](qsizetype sum, const ShelfItem& item) {
        return sum + restOfAnItem + std::visit(lengthOf, item.content);
    });
}

} // namespace

QByteArray ShelfIndex::encode() const
{
    QJsonArray array;
    for (const ShelfItem& item : items)
        array.append(json(item));
    return QJsonDocument(QJsonObject{ { itemsKey, array }, { versionKey, version } }).toJson();
}

qsizetype ShelfIndex::upperBound(const QList<ShelfItem>& items)
{
    return bound(items, roughLength);
}

qsizetype ShelfIndex::closeUpperBound(const QList<ShelfItem>& items)
{
    return bound(items, closeLength);
}

std::variant<ShelfIndex, Failure> ShelfIndex::decode(const QByteArray& bytes)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return Failure{ error.errorString() };
    if (!document.isObject())
        return Failure{ QStringLiteral("expected an object.") };
    return readIndex(document.object());
}

} // namespace nookle
