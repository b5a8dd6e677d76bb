#include "DropText.h"

#include "DropPayload.h"

#include <QStringDecoder>

#include <algorithm>

namespace nookle {

namespace {

/// Lower is better. Formats with a known encoding come before those without.
enum class TextRank { utf8, otherCharset, plain, latin1, none };

[[nodiscard]] QString charsetOf(const QString& format)
{
    const QString key = QStringLiteral("charset=");
    const qsizetype start = format.indexOf(key, 0, Qt::CaseInsensitive);
    if (start < 0)
        return {};
    QString charset = format.mid(start + key.size());
    charset.truncate(charset.indexOf(QLatin1Char(';')) < 0 ? charset.size() : charset.indexOf(QLatin1Char(';')));
    return charset.remove(QLatin1Char('"')).trimmed().toLower();
}

[[nodiscard]] bool isFormat(const QString& format, const char* name)
{
    return format.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
}

[[nodiscard]] TextRank rank(const QString& format)
{
    if (isFormat(format, "UTF8_STRING"))
        return TextRank::utf8;
    if (isFormat(format, "STRING"))
        return TextRank::latin1;
    const QString name = format.section(QLatin1Char(';'), 0, 0).trimmed();
    if (isFormat(name, "text/unicode"))
        return TextRank::otherCharset;
    if (!isFormat(name, "text/plain"))
        return TextRank::none;
    const QString charset = charsetOf(format);
    if (charset.isEmpty())
        return TextRank::plain;
    return charset == QLatin1String("utf-8") ? TextRank::utf8 : TextRank::otherCharset;
}

[[nodiscard]] QString decoded(const QByteArray& bytes, QStringDecoder decoder)
{
    return decoder.decode(bytes);
}

[[nodiscard]] std::optional<QString> decodedStrictly(const QByteArray& bytes, QStringDecoder decoder)
{
    QString text = decoder.decode(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(text);
}

/// Latin letters in UTF-16 contain zero bytes, which text in other encodings does not.
[[nodiscard]] bool looksLikeUtf16(const QByteArray& bytes)
{
    return bytes.size() % 2 == 0 && bytes.contains('\0');
}

[[nodiscard]] QString withoutTrailingNuls(QString text)
{
    while (text.endsWith(QChar(u'\0')))
        text.chop(1);
    return text;
}

[[nodiscard]] QString decodeWithoutCharset(const QByteArray& bytes)
{
    QByteArray unterminated = bytes;
    while (unterminated.endsWith('\0'))
        unterminated.chop(1);
    if (!unterminated.contains('\0')) {
        if (auto text = decodedStrictly(unterminated, QStringDecoder(QStringDecoder::Utf8)))
            return *text;
    }
    if (looksLikeUtf16(bytes))
        return decoded(bytes, QStringDecoder(QStringDecoder::Utf16));
    return QString::fromLatin1(unterminated);
}

} // namespace

bool isTextFormat(const QString& format)
{
    return rank(format) != TextRank::none;
}

QStringList textFormats(QStringList formats)
{
    formats.removeIf([](const QString& format) { return !isTextFormat(format); });
    std::stable_sort(formats.begin(), formats.end(),
                     [](const QString& left, const QString& right) { return rank(left) < rank(right); });
    return formats;
}

QString decodeText(const QByteArray& bytes, const QString& format)
{
    if (const auto marked = QStringDecoder::encodingForData(bytes))
        return withoutTrailingNuls(decoded(bytes, QStringDecoder(*marked)));
    if (rank(format) == TextRank::latin1)
        return withoutTrailingNuls(QString::fromLatin1(bytes));
    const QString charset =
        isFormat(format.section(QLatin1Char(';'), 0, 0), "text/unicode") ? QStringLiteral("utf-16") : charsetOf(format);
    QStringDecoder decoder(charset.toLatin1().constData());
    if (charset.isEmpty() || !decoder.isValid())
        return withoutTrailingNuls(decodeWithoutCharset(bytes));
    // The format's character set is used only if all bytes are valid in it, because sources often name a wrong one.
    if (auto text = decodedStrictly(bytes, std::move(decoder)))
        return withoutTrailingNuls(*text);
    return withoutTrailingNuls(decodeWithoutCharset(bytes));
}

std::optional<QString> loadDropText(const DropPayload& payload)
{
    for (const QString& format : textFormats(payload.formats())) {
        const QString text = decodeText(payload.data(format), format);
        if (!text.isEmpty())
            return text;
    }
    return std::nullopt;
}

QString decodeName(const QByteArray& bytes)
{
    const QByteArray name = bytes.split('\0').constFirst();
    return QUtf8StringView(name).isValidUtf8() ? QString::fromUtf8(name) : QString::fromLatin1(name);
}

} // namespace nookle
