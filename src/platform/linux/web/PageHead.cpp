#include "PageHead.h"

#include "CharacterSet.h"
#include "HtmlFragment.h"
#include "PageTitle.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

namespace nookle {

namespace {

inline constexpr qsizetype byteOrderMarkSize = 3;

constexpr std::array headElements{ "html",     "head",     "title",   "meta",     "link",     "base", "script", "style",
                                   "noscript", "template", "bgsound", "basefont", "noframes", "svg",  "math" };
constexpr std::array skippedElements{ "template", "svg", "math" };

template <typename Names> [[nodiscard]] bool contains(const Names& names, const QByteArray& name)
{
    return std::any_of(names.begin(), names.end(), [&](const char* candidate) { return name == candidate; });
}

[[nodiscard]] QString value(const HtmlFragment::Attributes& attributes, const char* name)
{
    const auto found = attributes.find(name);
    return found == attributes.end() ? QString() : found->second.trimmed();
}

/// The character set that the first bytes name by a byte-order mark, or empty.
[[nodiscard]] QByteArray markedSet(const QByteArray& bytes)
{
    if (bytes.startsWith("\xef\xbb\xbf"))
        return "UTF-8";
    if (bytes.startsWith("\xff\xfe"))
        return "UTF-16LE";
    if (bytes.startsWith("\xfe\xff"))
        return "UTF-16BE";
    return {};
}

[[nodiscard]] QByteArray encodingOfDeclaration(const QByteArray& declaration)
{
    const qsizetype at = declaration.indexOf("encoding");
    const qsizetype opening = at < 0 ? -1 : declaration.indexOf('=', at);
    const QByteArray rest = opening < 0 ? QByteArray() : declaration.mid(opening + 1).trimmed();
    if (rest.isEmpty() || (rest.at(0) != '"' && rest.at(0) != '\''))
        return {};
    return rest.mid(1, rest.indexOf(rest.at(0), 1) - 1);
}

} // namespace

PageHead::PageHead(const QByteArray& contentType)
    : m_syntax(contentType.toLower().contains("xhtml") ? MarkupScanner::Syntax::xhtml : MarkupScanner::Syntax::html)
    , m_headerCharset(charsetParameter(contentType))
    , m_scanner(m_syntax)
{
}

void PageHead::feed(QByteArrayView bytes)
{
    if (m_isOver)
        return;
    if (!m_isSetCertain)
        m_bytes.append(bytes);
    if (m_decoder)
        return scan(m_decoder->decode(bytes));
    if (m_bytes.size() >= byteOrderMarkSize)
        beginDecoding();
}

void PageHead::finish()
{
    if (m_isOver)
        return;
    if (!m_decoder)
        beginDecoding();
    if (const auto piece = m_scanner.finish())
        take(*piece);
    m_isOver = true;
}

std::optional<QString> PageHead::title() const
{
    return m_found.openGraphTitle ? m_found.openGraphTitle : m_found.title;
}

void PageHead::beginDecoding()
{
    const QByteArray marked = markedSet(m_bytes);
    const std::optional<QByteArray> declared = characterSetOf(m_headerCharset);
    m_isSetCertain = !marked.isEmpty() || declared;
    useSet(marked.isEmpty() ? declared.value_or("UTF-8") : marked);
}

void PageHead::useSet(const QByteArray& set)
{
    m_decoder = CharacterDecoder::tryCreate(set);
    if (!m_decoder)
        m_decoder = CharacterDecoder::tryCreate("UTF-8");
    const QByteArray bytes = m_isSetCertain ? std::exchange(m_bytes, {}) : m_bytes;
    scan(m_decoder->decode(bytes));
}

bool PageHead::decodeAgain(const QByteArray& label)
{
    const std::optional<QByteArray> set = characterSetOf(label);
    if (!set)
        return false;
    m_isSetCertain = true;
    // A page whose own words could be read is in no set of two-byte units, whatever they say.
    if (*set == "UTF-8" || set->startsWith("UTF-16")) {
        m_bytes.clear();
        return false;
    }
    m_scanner = MarkupScanner(m_syntax);
    m_skippedDepth = 0;
    m_found = {};
    useSet(*set);
    return true;
}

void PageHead::scan(const QByteArray& text)
{
    for (const char byte : text) {
        const std::optional<MarkupPiece> piece = m_scanner.take(byte);
        if (!piece)
            continue;
        take(*piece);
        // When the page is in another set after all, the rest of this text is wrong, and was read anew.
        if (!m_isSetCertain && !m_wantedSet.isEmpty() && decodeAgain(std::exchange(m_wantedSet, {})))
            return;
        if (m_isOver)
            return;
    }
}

void PageHead::take(const MarkupPiece& piece)
{
    switch (piece.kind) {
    case MarkupPiece::Kind::startTag:
        return takeStartTag(piece);
    case MarkupPiece::Kind::endTag:
        return takeEndTag(piece.name);
    case MarkupPiece::Kind::title:
        return takeTitle(piece);
    case MarkupPiece::Kind::xmlDeclaration:
        m_wantedSet = encodingOfDeclaration(piece.source);
    }
}

void PageHead::takeStartTag(const MarkupPiece& tag)
{
    if (m_skippedDepth > 0) {
        m_skippedDepth += tag.name == m_skippedElement && !tag.isSelfClosing ? 1 : 0;
        return;
    }
    if (tag.name == "meta")
        takeMeta(tag);
    else if (tag.name == "link")
        takeLink(tag);
    else if (tag.name == "base")
        takeBase(tag);
    else if (tag.name == "body" || tag.name == "frameset")
        m_isOver = true;
    else if (contains(skippedElements, tag.name))
        beginSkipping(tag);
    else if (!contains(headElements, tag.name))
        // What is shown is no part of a head; but sloppy pages put it before their title.
        m_isOver = hasTitle();
}

void PageHead::beginSkipping(const MarkupPiece& tag)
{
    // Of these, only those of other vocabularies can be empty by their own tag.
    const bool isEmpty = tag.isSelfClosing && (tag.name != "template" || m_syntax == MarkupScanner::Syntax::xhtml);
    m_skippedElement = tag.name;
    m_skippedDepth = isEmpty ? 0 : 1;
}

void PageHead::takeEndTag(const QByteArray& name)
{
    if (m_skippedDepth > 0)
        m_skippedDepth -= name == m_skippedElement ? 1 : 0;
    else if (name == "head")
        m_isOver = hasTitle();
}

void PageHead::takeTitle(const MarkupPiece& piece)
{
    if (m_skippedDepth == 0 && !m_found.title)
        m_found.title = presentableTitle(HtmlFragment::text(piece.source));
}

void PageHead::takeMeta(const MarkupPiece& tag)
{
    const HtmlFragment::Attributes attributes = HtmlFragment::attributes(tag.source);
    const QString content = value(attributes, "content");
    if (attributes.contains("charset"))
        m_wantedSet = value(attributes, "charset").toLatin1();
    else if (value(attributes, "http-equiv").compare(QLatin1String("content-type"), Qt::CaseInsensitive) == 0)
        m_wantedSet = charsetParameter(content.toLatin1());
    const QString property = value(attributes, attributes.contains("property") ? "property" : "name");
    if (!m_found.openGraphTitle && property.compare(QLatin1String("og:title"), Qt::CaseInsensitive) == 0)
        m_found.openGraphTitle = presentableTitle(content);
}

void PageHead::takeLink(const MarkupPiece& tag)
{
    const HtmlFragment::Attributes attributes = HtmlFragment::attributes(tag.source);
    const QStringList relations = value(attributes, "rel").toLower().simplified().split(u' ');
    const bool isTouchIcon = relations.contains(QLatin1String("apple-touch-icon"))
        || relations.contains(QLatin1String("apple-touch-icon-precomposed"));
    const QString href = value(attributes, "href");
    if (href.isEmpty() || !(isTouchIcon || relations.contains(QLatin1String("icon"))))
        return;
    if (m_found.icons.size() < maximumIcons)
        m_found.icons.append(IconLink{ href, value(attributes, "sizes"), value(attributes, "type"),
                                       value(attributes, "media"), isTouchIcon });
}

void PageHead::takeBase(const MarkupPiece& tag)
{
    const HtmlFragment::Attributes attributes = HtmlFragment::attributes(tag.source);
    if (!m_found.baseHref && attributes.contains("href"))
        m_found.baseHref = value(attributes, "href");
}

} // namespace nookle
