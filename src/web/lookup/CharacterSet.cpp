#include "CharacterSet.h"

#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>
#include <array>

namespace nookle {

namespace {

struct Meaning {
    const char* name;
    const char* meant;
};

// The meaning of character set names on the web, which is often a superset of the named set. Also names that the
// converter does not know.
constexpr std::array meanings{
    Meaning{ "ISO-8859-1", "windows-1252" },
    Meaning{ "US-ASCII", "windows-1252" },
    Meaning{ "ISO-8859-9", "windows-1254" },
    Meaning{ "tis-620", "windows-874" },
    Meaning{ "iso-8859-11", "windows-874" },
    Meaning{ "dos-874", "windows-874" },
    Meaning{ "GB2312", "gb18030" },
    Meaning{ "GB_2312-80", "gb18030" },
    Meaning{ "GBK", "gb18030" },
    Meaning{ "Big5", "Big5-HKSCS" },
    Meaning{ "cn-big5", "Big5-HKSCS" },
    Meaning{ "EUC-KR", "windows-949" },
    Meaning{ "KSC_5601", "windows-949" },
    Meaning{ "Shift_JIS", "windows-31j" },
    Meaning{ "koi", "KOI8-R" },
    Meaning{ "koi8-ru", "KOI8-U" },
    Meaning{ "visual", "ISO-8859-8" },
    Meaning{ "logical", "ISO-8859-8" },
    Meaning{ "UTF-16", "UTF-16LE" },
    Meaning{ "x-mac-ukrainian", "x-mac-cyrillic" },
};

[[nodiscard]] std::optional<QByteArray> meaningOf(const QByteArray& name)
{
    const auto* const found =
        std::find_if(meanings.begin(), meanings.end(), [&](const Meaning& meaning) { return name == meaning.name; });
    return found == meanings.end() ? std::nullopt : std::optional<QByteArray>(found->meant);
}

} // namespace

std::optional<QByteArray> characterSetOf(const QByteArray& label)
{
    const QByteArray wanted = label.trimmed().toLower();
    if (const auto meant = meaningOf(wanted))
        return meant;
    const QStringDecoder decoder(wanted.constData());
    const bool isKnown = !wanted.isEmpty() && decoder.isValid();
    // "locale" is not a character set; the converter takes it for that of this computer.
    if (!isKnown || wanted == "locale")
        return std::nullopt;
    const QByteArray name(decoder.name());
    if (const auto meant = meaningOf(name))
        return meant;
    return name.isEmpty() ? wanted : name;
}

QByteArray charsetParameter(const QByteArray& contentType)
{
    static const QRegularExpression parameter(
        QStringLiteral("charset\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)'|([^\"'\\s;,]+))"),
        QRegularExpression::CaseInsensitiveOption);
    const auto match = parameter.match(QString::fromLatin1(contentType));
    return match.captured(match.lastCapturedIndex()).trimmed().toLatin1();
}

QString decoded(const QByteArray& bytes, const QByteArray& set)
{
    QStringDecoder decoder(set.constData(), QStringConverter::Flag::Stateless);
    return decoder.decode(bytes);
}

} // namespace nookle
