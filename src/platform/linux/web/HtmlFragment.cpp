#include "HtmlFragment.h"

#include <libxml/HTMLparser.h>

#include <memory>

namespace nookle::HtmlFragment {

namespace {

struct Content {
    Attributes attributes;
    QByteArray text;
};

struct FreeParser {
    void operator()(htmlParserCtxt* parser) const { htmlFreeParserCtxt(parser); }
};

[[nodiscard]] const char* characters(const xmlChar* text)
{
    return reinterpret_cast<const char*>(text);
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
    Content content;
    htmlSAXHandler handler{};
    handler.startElement = startElement;
    handler.characters = appendText;
    handler.ignorableWhitespace = appendText;
    const std::unique_ptr<htmlParserCtxt, FreeParser> parser(
        htmlCreatePushParserCtxt(&handler, &content, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8));
    if (!parser)
        return content;
    htmlCtxtUseOptions(parser.get(),
                       HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET
                           | HTML_PARSE_NOIMPLIED | HTML_PARSE_IGNORE_ENC);
    htmlParseChunk(parser.get(), source.constData(), int(source.size()), 1);
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
