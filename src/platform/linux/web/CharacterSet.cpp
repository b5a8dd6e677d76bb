#include "CharacterSet.h"

#include <algorithm>
#include <array>

namespace nookle {

namespace {

struct NamedSet {
    const char* converter;
    /// Lower case, each between spaces.
    const char* labels;
};

// What the labels mean on the web, which is often a superset of what they say.
constexpr std::array sets{
    NamedSet{ "UTF-8", " utf-8 utf8 unicode-1-1-utf-8 unicode11utf8 unicode20utf8 x-unicode20utf8 " },
    NamedSet{ "CP1252",
              " windows-1252 cp1252 x-cp1252 iso-8859-1 iso8859-1 iso88591 iso_8859-1 latin1 latin-1 l1 ascii "
              "us-ascii ansi_x3.4-1968 cp819 ibm819 iso-ir-100 csisolatin1 iso_8859-1:1987 " },
    NamedSet{ "CP932", " shift_jis shift-jis sjis x-sjis ms_kanji ms932 windows-31j csshiftjis cp932 " },
    NamedSet{ "EUC-JP-MS", " euc-jp x-euc-jp cseucpkdfmtjapanese " },
    NamedSet{ "ISO-2022-JP", " iso-2022-jp csiso2022jp " },
    NamedSet{ "CP1251", " windows-1251 cp1251 x-cp1251 " },
    NamedSet{ "KOI8-R", " koi8-r koi8 koi koi8_r cskoi8r " },
    NamedSet{ "KOI8-U", " koi8-u koi8-ru " },
    NamedSet{ "CP866", " ibm866 866 cp866 csibm866 " },
    NamedSet{ "GB18030", " gb18030 gbk gb2312 gb_2312 gb_2312-80 x-gbk chinese csgb2312 csiso58gb231280 iso-ir-58 " },
    NamedSet{ "BIG5-HKSCS", " big5 big5-hkscs cn-big5 csbig5 x-x-big5 " },
    NamedSet{ "CP949",
              " euc-kr ks_c_5601-1987 ks_c_5601-1989 ksc5601 ksc_5601 korean windows-949 cseuckr csksc56011987 "
              "iso-ir-149 " },
    NamedSet{ "CP1250", " windows-1250 cp1250 x-cp1250 " },
    NamedSet{ "CP1253", " windows-1253 cp1253 x-cp1253 " },
    NamedSet{ "CP1254",
              " windows-1254 cp1254 x-cp1254 iso-8859-9 iso8859-9 iso88599 iso_8859-9 latin5 l5 iso-ir-148 "
              "csisolatin5 iso_8859-9:1989 " },
    NamedSet{ "CP1255", " windows-1255 cp1255 x-cp1255 " },
    NamedSet{ "CP1256", " windows-1256 cp1256 x-cp1256 " },
    NamedSet{ "CP1257", " windows-1257 cp1257 x-cp1257 " },
    NamedSet{ "CP1258", " windows-1258 cp1258 x-cp1258 " },
    NamedSet{ "CP874", " windows-874 dos-874 tis-620 iso-8859-11 iso8859-11 iso885911 " },
    NamedSet{ "ISO-8859-2",
              " iso-8859-2 iso8859-2 iso88592 iso_8859-2 latin2 l2 iso-ir-101 csisolatin2 "
              "iso_8859-2:1987 " },
    NamedSet{ "ISO-8859-3",
              " iso-8859-3 iso8859-3 iso88593 iso_8859-3 latin3 l3 iso-ir-109 csisolatin3 "
              "iso_8859-3:1988 " },
    NamedSet{ "ISO-8859-4",
              " iso-8859-4 iso8859-4 iso88594 iso_8859-4 latin4 l4 iso-ir-110 csisolatin4 "
              "iso_8859-4:1988 " },
    NamedSet{ "ISO-8859-5",
              " iso-8859-5 iso8859-5 iso88595 iso_8859-5 cyrillic iso-ir-144 csisolatincyrillic "
              "iso_8859-5:1988 " },
    NamedSet{ "ISO-8859-6",
              " iso-8859-6 iso8859-6 iso88596 iso_8859-6 arabic asmo-708 ecma-114 iso-8859-6-e "
              "iso-8859-6-i iso-ir-127 csisolatinarabic iso_8859-6:1987 " },
    NamedSet{ "ISO-8859-7",
              " iso-8859-7 iso8859-7 iso88597 iso_8859-7 greek greek8 ecma-118 elot_928 iso-ir-126 "
              "sun_eu_greek csisolatingreek iso_8859-7:1987 " },
    NamedSet{ "ISO-8859-8",
              " iso-8859-8 iso8859-8 iso88598 iso_8859-8 hebrew visual iso-8859-8-e iso-8859-8-i logical "
              "iso-ir-138 csisolatinhebrew iso_8859-8:1988 " },
    NamedSet{ "ISO-8859-10", " iso-8859-10 iso8859-10 iso885910 latin6 l6 iso-ir-157 csisolatin6 " },
    NamedSet{ "ISO-8859-13", " iso-8859-13 iso8859-13 iso885913 " },
    NamedSet{ "ISO-8859-14", " iso-8859-14 iso8859-14 iso885914 " },
    NamedSet{ "ISO-8859-15", " iso-8859-15 iso8859-15 iso885915 iso_8859-15 l9 csisolatin9 " },
    NamedSet{ "ISO-8859-16", " iso-8859-16 " },
    NamedSet{ "MACINTOSH", " macintosh mac x-mac-roman csmacintosh " },
    NamedSet{ "MAC-CYRILLIC", " x-mac-cyrillic x-mac-ukrainian " },
    NamedSet{ "UTF-16LE", " utf-16 utf-16le unicode ucs-2 iso-10646-ucs-2 csunicode unicodefeff " },
    NamedSet{ "UTF-16BE", " utf-16be unicodefffe " },
};

} // namespace

std::optional<QByteArray> characterSetOf(QByteArrayView label)
{
    QByteArray wanted = label.toByteArray().trimmed().toLower();
    if (wanted.isEmpty() || wanted.contains(' '))
        return std::nullopt;
    wanted.prepend(' ').append(' ');
    const auto* const found = std::find_if(
        sets.begin(), sets.end(), [&](const NamedSet& set) { return QByteArrayView(set.labels).contains(wanted); });
    return found == sets.end() ? std::nullopt : std::optional(QByteArray(found->converter));
}

QByteArray charsetParameter(QByteArrayView contentType)
{
    const QByteArray lower = contentType.toByteArray().toLower();
    qsizetype at = 0;
    while ((at = lower.indexOf("charset", at)) >= 0) {
        at += 7;
        QByteArray rest = lower.mid(at).trimmed();
        if (!rest.startsWith('='))
            continue;
        rest = rest.mid(1).trimmed();
        const char quote = rest.isEmpty() ? '\0' : rest.at(0);
        if (quote == '"' || quote == '\'')
            return rest.mid(1, rest.indexOf(quote, 1) - 1).trimmed();
        const auto* const end =
            std::find_if(rest.cbegin(), rest.cend(), [](char c) { return c == ';' || c == ',' || c == ' '; });
        return rest.first(end - rest.cbegin());
    }
    return {};
}

} // namespace nookle
