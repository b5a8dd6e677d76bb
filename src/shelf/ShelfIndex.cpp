#include "ShelfIndex.h"

#include "DateText.h"
#include "Overloaded.h"
#include "UuidText.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <utility>

namespace nookle {

namespace {

constexpr QLatin1String versionKey("version");
constexpr QLatin1String itemsKey("items");
constexpr QLatin1String idKey("id");
constexpr QLatin1String createdAtKey("createdAt");
constexpr QLatin1String contentKey("content");
constexpr QLatin1String pinnedKey("pinned");
constexpr QLatin1String fileKey("file");
constexpr QLatin1String bookmarkKey("bookmark");
constexpr QLatin1String nameKey("name");
constexpr QLatin1String textKey("text");
constexpr QLatin1String textValueKey("_0");
constexpr QLatin1String linkKey("link");
constexpr QLatin1String urlKey("url");
constexpr QLatin1String titleKey("title");
constexpr QLatin1String hasIconKey("hasIcon");
constexpr QLatin1String imageKey("image");
constexpr QLatin1String fileNameKey("fileName");

/// Collects bytes.
class Bytes {
public:
    void reserve(qsizetype size) { m_bytes.reserve(size); }
    void append(char byte) { m_bytes += byte; }
    void append(QByteArrayView bytes) { m_bytes += bytes; }
    [[nodiscard]] QByteArray take() { return std::move(m_bytes); }

private:
    QByteArray m_bytes;
};

/// Counts bytes.
class ByteCount {
public:
    void reserve(qsizetype /*size*/) {}
    void append(char /*byte*/) { ++m_count; }
    void append(QByteArrayView bytes) { m_count += bytes.size(); }
    [[nodiscard]] qsizetype take() const { return m_count; }

private:
    qsizetype m_count = 0;
};

/// Whether JSON takes the character as it is, and it is one by itself.
[[nodiscard]] bool isPlain(QChar character)
{
    constexpr char16_t firstPrintable = 0x20;
    return character.unicode() >= firstPrintable && character != QLatin1Char('"') && character != QLatin1Char('\\')
        && !character.isSurrogate();
}

/// An escape of JSON.
class Escape {
public:
    /// Of a character, or of half of one.
    explicit Escape(QChar character)
    {
        constexpr QByteArrayView shortOnes("\"\"\\\\\bb\ff\nn\rr\tt");
        const char16_t code = character.unicode();
        for (qsizetype place = 0; place < shortOnes.size(); place += 2) {
            if (code == char16_t(shortOnes[place])) {
                m_bytes[1] = shortOnes[place + 1];
                m_size = 2;
                return;
            }
        }
        constexpr QByteArrayView digits("0123456789abcdef");
        for (qsizetype place = m_size - 1, rest = code; place > 1; --place, rest >>= 4U)
            m_bytes[std::size_t(place)] = digits[rest & 0xf];
    }

    [[nodiscard]] QByteArrayView bytes() const { return { m_bytes.data(), m_size }; }

private:
    std::array<char, 6> m_bytes{ '\\', 'u' };
    qsizetype m_size = 6;
};

/// The length of the longest beginning of a text that JSON takes as it is.
[[nodiscard]] qsizetype plainLength(QStringView text)
{
    // Long texts are written in pieces, so as not to need as much memory again.
    constexpr qsizetype longestPiece = 1 << 16;
    const QStringView piece = text.left(longestPiece);
    return std::find_if_not(piece.begin(), piece.end(), isPlain) - piece.begin();
}

/// Writes one document, a member a line. Thousands of items are written at once, and handing them to a general writer
/// would copy each of them several times. The caller gives the members in ascending order of their keys.
template <typename Output> class Writer {
public:
    explicit Writer(qsizetype itemCount)
    {
        constexpr qsizetype usualSize = 600;
        m_output.reserve(itemCount * usualSize);
    }

    void begin(char bracket)
    {
        m_output.append(bracket);
        ++m_depth;
        m_isFirst = true;
    }

    void end(char bracket)
    {
        --m_depth;
        newLine();
        m_output.append(bracket);
        m_isFirst = false;
    }

    void element()
    {
        if (!m_isFirst)
            m_output.append(',');
        newLine();
        m_isFirst = false;
    }

    void key(QLatin1String key)
    {
        element();
        m_output.append('"');
        m_output.append(QByteArrayView(key.data(), key.size()));
        m_output.append(QByteArrayView("\": "));
    }

    void beginObject(QLatin1String key)
    {
        this->key(key);
        begin('{');
    }

    void member(QLatin1String key, bool value) { json(key, value ? "true" : "false"); }
    void member(QLatin1String key, const QString& text)
    {
        this->key(key);
        m_output.append('"');
        append(text);
        m_output.append('"');
    }

    /// For a value that is JSON already.
    void json(QLatin1String key, QByteArrayView value)
    {
        this->key(key);
        m_output.append(value);
    }

    /// For a value that needs no escaping.
    void plain(QLatin1String key, QByteArrayView value)
    {
        this->key(key);
        m_output.append('"');
        m_output.append(value);
        m_output.append('"');
    }

    [[nodiscard]] auto take()
    {
        m_output.append('\n');
        return m_output.take();
    }

private:
    void newLine()
    {
        constexpr qsizetype indentation = 4;
        constexpr QByteArrayView indentations("                        ");
        m_output.append('\n');
        m_output.append(indentations.first(m_depth * indentation));
    }

    void append(QStringView text)
    {
        while (!text.isEmpty()) {
            qsizetype length = plainLength(text);
            if (length == 0 && text.size() > 1 && text[0].isHighSurrogate() && text[1].isLowSurrogate())
                length = 2;
            if (length > 0)
                m_output.append(text.left(length).toUtf8());
            else
                m_output.append(Escape(text[length++]).bytes());
            text = text.mid(length);
        }
    }

    Output m_output;
    qsizetype m_depth = 0;
    bool m_isFirst = true;
};

template <typename Output> void write(Writer<Output>& writer, const ShelfItem::Content& content)
{
    std::visit(overloaded{
                   [&](const FileContent& file) {
                       writer.beginObject(fileKey);
                       writer.plain(bookmarkKey, file.bookmark.toBase64());
                       writer.member(nameKey, file.name);
                   },
                   [&](const TextContent& text) {
                       writer.beginObject(textKey);
                       writer.member(textValueKey, text.text);
                   },
                   [&](const LinkContent& link) {
                       writer.beginObject(linkKey);
                       writer.member(hasIconKey, link.hasIcon);
                       if (link.title)
                           writer.member(titleKey, *link.title);
                       writer.member(urlKey, link.url.absoluteString());
                   },
                   [&](const ImageContent& image) {
                       writer.beginObject(imageKey);
                       writer.member(fileNameKey, image.fileName);
                   },
               },
               content);
    writer.end('}');
}

template <typename Output> void write(Writer<Output>& writer, const ShelfItem& item)
{
    writer.element();
    writer.begin('{');
    writer.beginObject(contentKey);
    write(writer, item.content);
    writer.end('}');
    writer.plain(createdAtKey, dateText(item.createdAt));
    writer.plain(idKey, uuidText(item.id).toLatin1());
    writer.member(pinnedKey, item.pinned);
    writer.end('}');
}

template <typename Output> [[nodiscard]] auto written(const ShelfIndex& index)
{
    Writer<Output> writer(index.items.size());
    writer.begin('{');
    writer.key(itemsKey);
    writer.begin('[');
    for (const ShelfItem& item : index.items)
        write(writer, item);
    writer.end(']');
    writer.json(versionKey, QByteArray::number(index.version));
    writer.end('}');
    return writer.take();
}

/// What an item takes at most, without a look into its texts.
[[nodiscard]] qsizetype largestSizeOf(const ShelfItem& item)
{
    constexpr qsizetype restSize = 500;
    constexpr qsizetype escapedSize = 6;
    constexpr qsizetype base64Size = 2;
    const qsizetype contentSize = std::visit(
        overloaded{
            [](const FileContent& file) { return escapedSize * file.name.size() + base64Size * file.bookmark.size(); },
            [](const TextContent& text) { return escapedSize * text.text.size(); },
            [](const LinkContent& link) {
                const qsizetype titleSize = link.title ? link.title->size() : 0;
                return escapedSize * (link.url.absoluteString().size() + titleSize);
            },
            [](const ImageContent& image) { return escapedSize * image.fileName.size(); },
        },
        item.content);
    return restSize + contentSize;
}

/// Reads one document. The first thing that is wrong ends up in `failure`, and every reading function that met
/// something wrong returns nothing.
class Reader {
public:
    [[nodiscard]] std::optional<ShelfIndex> index(const QJsonObject& object)
    {
        const QJsonValue version = object.value(versionKey);
        // The default comes back for anything but an integer.
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

    QString failure;

private:
    std::nullopt_t fail(QLatin1String key, const char* message)
    {
        failure = key + QLatin1String(": ") + QLatin1String(message);
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
            failure = QStringLiteral("Invalid number of keys found, expected one.");
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
        // Qt does without padding when there is none at all.
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
};

} // namespace

QByteArray ShelfIndex::encode() const
{
    return written<Bytes>(*this);
}

qsizetype ShelfIndex::encodedSize() const
{
    return written<ByteCount>(*this);
}

qsizetype ShelfIndex::upperBound(const QList<ShelfItem>& items)
{
    constexpr qsizetype frame = 100;
    return std::accumulate(items.begin(), items.end(), frame,
                           [](qsizetype sum, const ShelfItem& item) { return sum + largestSizeOf(item); });
}

std::variant<ShelfIndex, Failure> ShelfIndex::decode(const QByteArray& bytes)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError)
        return Failure{ error.errorString() };
    if (!document.isObject())
        return Failure{ QStringLiteral("expected an object.") };
    Reader reader;
    std::optional<ShelfIndex> index = reader.index(document.object());
    if (!index)
        return Failure{ reader.failure };
    return *std::move(index);
}

} // namespace nookle
