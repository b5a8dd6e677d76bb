#include "HtmlFragment.h"

#include "Log.h"

#include <libxml/HTMLparser.h>

#include <QLibrary>
#include <QRegularExpression>

#include <array>
#include <memory>
#include <optional>

namespace nookle::HtmlFragment {

namespace {

struct Content {
    Attributes attributes;
    QByteArray text;
};

/// The functions of libxml2 that are used here.
struct LibXml {
    decltype(&htmlCreatePushParserCtxt) createParser;
    decltype(&htmlCtxtUseOptions) useOptions;
    decltype(&htmlParseChunk) parseChunk;
    decltype(&htmlFreeParserCtxt) freeParser;
};

/// Linked to the program, the library would take a twentieth of every start, and most starts need none of it.
[[nodiscard]] std::optional<LibXml> loadLibXml()
{
    constexpr int majorVersion = 2;
    QLibrary library(QStringLiteral("xml2"), majorVersion);
    if (!library.load()) {
        logLine(QStringLiteral("web pages have no titles: %1").arg(library.errorString()));
        return std::nullopt;
    }
    return LibXml{
        reinterpret_cast<decltype(LibXml::createParser)>(library.resolve("htmlCreatePushParserCtxt")),
        reinterpret_cast<decltype(LibXml::useOptions)>(library.resolve("htmlCtxtUseOptions")),
        reinterpret_cast<decltype(LibXml::parseChunk)>(library.resolve("htmlParseChunk")),
        reinterpret_cast<decltype(LibXml::freeParser)>(library.resolve("htmlFreeParserCtxt")),
    };
}

[[nodiscard]] const char* characters(const xmlChar* text)
{
    return reinterpret_cast<const char*>(text);
}

/// The numbers 128 to 159 stand for control characters, and pages mean the signs of a code page by them.
[[nodiscard]] int meantCharacter(int number)
{
    constexpr std::array meant{ 0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178 };
    constexpr int first = 128;
    const bool isMeantOtherwise = number >= first && number < first + static_cast<int>(meant.size());
    return isMeantOtherwise ? meant[static_cast<std::size_t>(number - first)] : number;
}

/// The source with such references replaced, as browsers read them.
[[nodiscard]] QString withMeantReferences(const QString& source)
{
    static const QRegularExpression reference(
        QStringLiteral("&#(?:0*([0-9]{3})(?![0-9])|[xX]0*([89][0-9a-fA-F])(?![0-9a-fA-F]))"));
    QString result;
    qsizetype end = 0;
    for (auto matches = reference.globalMatch(source); matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const bool isDecimal = match.hasCaptured(1);
        const int number = isDecimal ? match.captured(1).toInt() : match.captured(2).toInt(nullptr, 16);
        result += source.mid(end, match.capturedStart() - end);
        result += QStringLiteral("&#%1").arg(meantCharacter(number));
        end = match.capturedEnd();
    }
    return result + source.mid(end);
}

void startElement(void* context, const xmlChar* /*name*/, const xmlChar** attributes)
{
    auto& content = *static_cast<Content*>(context);
    for (; attributes && *attributes; attributes += 2) {
        const QString value = attributes[1] ? QString::fromUtf8(characters(attributes[1])) : QString();
        content.attributes.emplace(QByteArray(characters(attributes[0])).toLower(), value);
    }
}

void appendText(void* context, const xmlChar* text, int size)
{
    static_cast<Content*>(context)->text.append(characters(text), size);
}

/// Parses a whole fragment at once: the parser's way of waiting for the rest of one loses track of quotes.
[[nodiscard]] Content parse(const QByteArray& source)
{
    static const std::optional<LibXml> library = loadLibXml();
    Content content;
    if (!library)
        return content;
    htmlSAXHandler handler{};
    handler.startElement = startElement;
    handler.characters = appendText;
    handler.ignorableWhitespace = appendText;
    const std::unique_ptr<htmlParserCtxt, decltype(LibXml::freeParser)> parser(
        library->createParser(&handler, &content, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8), library->freeParser);
    if (!parser)
        return content;
    library->useOptions(parser.get(),
                        HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET
                            | HTML_PARSE_NOIMPLIED | HTML_PARSE_IGNORE_ENC);
    const QByteArray meant = withMeantReferences(QString::fromUtf8(source)).toUtf8();
    library->parseChunk(parser.get(), meant.constData(), int(meant.size()), 1);
    return content;
}

} // namespace

Attributes attributes(QByteArrayView source)
{
    return parse(source.toByteArray()).attributes;
}

QString text(QByteArrayView source)
{
    QByteArray escaped = source.toByteArray();
    escaped.replace('<', "&lt;");
    return QString::fromUtf8(parse("<title>" + escaped + "</title>").text);
}

} // namespace nookle::HtmlFragment
