#include "IndexReader.h"

#include "IndexKeys.h"
#include "IndexText.h"

#include <QJsonArray>
#include <QJsonValue>

#include <optional>
#include <utility>

namespace nookle {

using namespace indexKeys;

namespace {

/// Reads one document. `failure()` returns the first error. A reading function returns none if it has found an error.
class Reader {
public:
    [[nodiscard]] std::optional<ShelfIndex> index(const QJsonObject& object)
    {
        const QJsonValue version = object.value(versionKey);
        // `toInteger` returns its default for anything but an integer.
        if (version.toInteger(0) != version.toInteger(1))
            return fail(versionKey, "expected an integer.");
        const QJsonValue items = object.value(itemsKey);
        if (!items.isArray())
            return fail(itemsKey, "expected an array.");

        ShelfIndex index{ version.toInteger(), {} };
        const QJsonArray array = items.toArray();
        index.items.reserve(array.size());
        for (const QJsonValue element : array) {
            if (!element.isObject())
                return fail(itemsKey, "expected an array of objects.");
            std::optional<ShelfItem> read = item(element.toObject());
            if (!read)
                return {};
            index.items.append(*std::move(read));
        }
        return index;
    }

    [[nodiscard]] const QString& failure() const { return m_failure; }

private:
    std::nullopt_t fail(QLatin1String key, const char* message)
    {
        m_failure = key + QLatin1String(": ") + QLatin1String(message);
        return std::nullopt;
    }

    [[nodiscard]] std::optional<QString> string(const QJsonObject& object, QLatin1String key)
    {
        const QJsonValue value = object.value(key);
        if (!value.isString())
            return fail(key, "expected a string.");
        return value.toString();
    }

    [[nodiscard]] std::optional<bool> boolean(const QJsonObject& object, QLatin1String key)
    {
        const QJsonValue value = object.value(key);
        if (!value.isBool())
            return fail(key, "expected true or false.");
        return value.toBool();
    }

    [[nodiscard]] std::optional<QJsonObject> member(const QJsonObject& object, QLatin1String key)
    {
        const QJsonValue value = object.value(key);
        if (!value.isObject())
            return fail(key, "expected an object.");
        return value.toObject();
    }

    [[nodiscard]] std::optional<QUuid> uuid(const QJsonObject& object, QLatin1String key)
    {
        const std::optional<QString> text = string(object, key);
        if (!text)
            return {};
        const std::optional<QUuid> uuid = uuidFromText(*text);
        return uuid ? uuid : fail(key, "expected a UUID.");
    }

    [[nodiscard]] std::optional<QDateTime> date(const QJsonObject& object, QLatin1String key)
    {
        const std::optional<QString> text = string(object, key);
        if (!text)
            return {};
        const std::optional<QDateTime> date = dateFromText(*text);
        return date ? date : fail(key, "expected a date such as 2026-01-31T12:00:00Z.");
    }

    [[nodiscard]] std::optional<ShelfItem> item(const QJsonObject& object)
    {
        const std::optional<QUuid> id = uuid(object, idKey);
        if (!id)
            return {};
        const std::optional<QDateTime> createdAt = date(object, createdAtKey);
        if (!createdAt)
            return {};
        const std::optional<QJsonObject> contentObject = member(object, contentKey);
        if (!contentObject)
            return {};
        std::optional<ShelfItem::Content> content = this->content(*contentObject);
        if (!content)
            return {};
        const std::optional<bool> pinned = boolean(object, pinnedKey);
        if (!pinned)
            return {};
        return ShelfItem{ *id, *createdAt, *std::move(content), *pinned };
    }

    [[nodiscard]] std::optional<ShelfItem::Content> content(const QJsonObject& object)
    {
        QLatin1String kind;
        int kinds = 0;
        for (const QLatin1String key : { fileKey, textKey, linkKey, imageKey }) {
            if (object.contains(key)) {
                kind = key;
                ++kinds;
            }
        }
        if (kinds != 1) {
            m_failure = QStringLiteral("Invalid number of keys found, expected one.");
            return {};
        }
        const std::optional<QJsonObject> payload = member(object, kind);
        if (!payload)
            return {};
        if (kind == fileKey)
            return file(*payload);
        if (kind == textKey)
            return text(*payload);
        return kind == linkKey ? link(*payload) : image(*payload);
    }

    [[nodiscard]] std::optional<ShelfItem::Content> file(const QJsonObject& payload)
    {
        const std::optional<QString> base64 = string(payload, bookmarkKey);
        if (!base64)
            return {};
        const QByteArray::FromBase64Result bookmark = QByteArray::fromBase64Encoding(
            base64->toLatin1(), QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
        // Qt accepts base64 without any padding; the index always has padding.
        if (!bookmark || base64->size() % 4 != 0)
            return fail(bookmarkKey, "expected Base64.");
        std::optional<QString> name = string(payload, nameKey);
        if (!name)
            return {};
        return FileContent{ bookmark.decoded, *std::move(name) };
    }

    [[nodiscard]] std::optional<ShelfItem::Content> text(const QJsonObject& payload)
    {
        std::optional<QString> value = string(payload, textValueKey);
        if (!value)
            return {};
        return TextContent{ *std::move(value) };
    }

    [[nodiscard]] std::optional<ShelfItem::Content> link(const QJsonObject& payload)
    {
        const std::optional<QString> address = string(payload, urlKey);
        if (!address)
            return {};
        std::optional<LinkUrl> url = LinkUrl::parseSaved(*address);
        if (!url)
            return fail(urlKey, "expected an absolute URL.");
        std::optional<QString> title;
        if (const QJsonValue value = payload.value(titleKey); !value.isUndefined() && !value.isNull()) {
            title = string(payload, titleKey);
            if (!title)
                return {};
        }
        const std::optional<bool> hasIcon = boolean(payload, hasIconKey);
        if (!hasIcon)
            return {};
        return LinkContent{ *std::move(url), std::move(title), *hasIcon };
    }

    [[nodiscard]] std::optional<ShelfItem::Content> image(const QJsonObject& payload)
    {
        std::optional<QString> fileName = string(payload, fileNameKey);
        if (!fileName)
            return {};
        return ImageContent{ *std::move(fileName) };
    }

    QString m_failure;
};

} // namespace

std::variant<ShelfIndex, Failure> readIndex(const QJsonObject& object)
{
    Reader reader;
    std::optional<ShelfIndex> index = reader.index(object);
    if (!index)
        return Failure{ reader.failure() };
    return *std::move(index);
}

} // namespace nookle
