#include "Page.h"

#include "CharacterSet.h"
#include "HtmlTree.h"
#include "PageTitle.h"

#include <QRegularExpression>
#include <QStringList>

namespace nookle {

namespace {

[[nodiscard]] bool isSaid(const QString& text, const char* latin1)
{
    return text.compare(QLatin1String(latin1), Qt::CaseInsensitive) == 0;
}

/// The character set that the first bytes name by a byte-order mark, or empty.
[[nodiscard]] QByteArray markedSet(const QByteArray& bytes)
{
    if (bytes.startsWith("\xef\xbb\xbf"))
        return "UTF-8";
    if (bytes.startsWith("\xff\xfe"))
        return "UTF-16LE";
    return bytes.startsWith("\xfe\xff") ? "UTF-16BE" : "";
}

/// The decoded text, changed so that the parser treats it as a browser does.
[[nodiscard]] QByteArray parsed(const QByteArray& bytes, const QByteArray& set, bool isXhtml)
{
    QString text = decoded(bytes, set);
    // Removed, because the parser would replace control characters by visible ones.
    constexpr QChar nextLine(0x85);
    text.replace(nextLine, QLatin1Char(' '));
    text.removeIf([](QChar c) { return c.category() == QChar::Other_Control && !c.isSpace() && !c.isNull(); });
    // Browsers, which run scripts, treat the content of `noscript` as text. The parser does so only for `noframes`.
    text.replace(QLatin1String("<noscript"), QLatin1String("<noframes"), Qt::CaseInsensitive);
    text.replace(QLatin1String("</noscript"), QLatin1String("</noframes"), Qt::CaseInsensitive);
    static const QRegularExpression emptyElement(
        QStringLiteral("<(title|script|style|template|noframes|iframe|textarea)(\\s[^<>]*)?/>"),
        QRegularExpression::CaseInsensitiveOption);
    if (isXhtml)
        text.replace(emptyElement, QStringLiteral("<\\1\\2></\\1>"));
    return text.toUtf8();
}

/// Undoes the changes of `parsed` in a text for display.
[[nodiscard]] QString restored(QString text)
{
    text.replace(QLatin1String("<noframes"), QLatin1String("<noscript"), Qt::CaseInsensitive);
    return text.replace(QLatin1String("</noframes"), QLatin1String("</noscript"), Qt::CaseInsensitive);
}

/// Reads the relevant elements of one tree.
class PageReader final {
public:
    explicit PageReader(const HtmlTree& tree);

    [[nodiscard]] Page page() const { return m_page; }
    /// The character set that the page declares, if it is known; otherwise empty.
    [[nodiscard]] QByteArray characterSet() const { return m_characterSet; }

private:
    void take(const GumboNode& element);
    void takeMeta(const GumboNode& element);
    void takeLink(const GumboNode& element);
    void takeCharacterSet(const QString& label);

    Page m_page;
    QByteArray m_characterSet;
    std::optional<QString> m_openGraphTitle;
    bool m_hasBase = false;
};

PageReader::PageReader(const HtmlTree& tree)
{
    const auto read = [this](const GumboNode& element) { take(element); };
    const GumboNode* const head = tree.part(GUMBO_TAG_HEAD);
    const GumboNode* const body = tree.part(GUMBO_TAG_BODY);
    if (head)
        HtmlTree::forEach(*head, read);
    // Visible content ends the head, but some pages put it before their title. So without a body tag, the body is read
    // too.
    const bool isBodyWritten = body && HtmlTree::isWritten(*body);
    if (body && !isBodyWritten)
        HtmlTree::forEach(*body, read);
    if (m_openGraphTitle)
        m_page.title = m_openGraphTitle;
    const bool isHeadClosed = head && (head->parse_flags & GUMBO_INSERTION_IMPLICIT_END_TAG) == 0;
    m_page.isHeadOver = isBodyWritten || tree.part(GUMBO_TAG_FRAMESET) || (isHeadClosed && m_page.title);
}

void PageReader::take(const GumboNode& element)
{
    switch (element.v.element.tag) {
    case GUMBO_TAG_TITLE:
        if (!m_page.title)
            m_page.title = presentableTitle(restored(HtmlTree::text(element)));
        return;
    case GUMBO_TAG_META:
        return takeMeta(element);
    case GUMBO_TAG_LINK:
        return takeLink(element);
    case GUMBO_TAG_BASE:
        if (!m_hasBase && HtmlTree::hasAttribute(element, "href"))
            m_page.baseHref = HtmlTree::attribute(element, "href");
        m_hasBase = m_hasBase || HtmlTree::hasAttribute(element, "href");
        return;
    default:
        return;
    }
}

void PageReader::takeMeta(const GumboNode& element)
{
    const QString content = HtmlTree::attribute(element, "content");
    if (HtmlTree::hasAttribute(element, "charset"))
        takeCharacterSet(HtmlTree::attribute(element, "charset"));
    else if (isSaid(HtmlTree::attribute(element, "http-equiv"), "content-type"))
        takeCharacterSet(QString::fromLatin1(charsetParameter(content.toLatin1())));
    const char* const naming = HtmlTree::hasAttribute(element, "property") ? "property" : "name";
    if (!m_openGraphTitle && isSaid(HtmlTree::attribute(element, naming), "og:title"))
        m_openGraphTitle = presentableTitle(restored(content));
}

void PageReader::takeLink(const GumboNode& element)
{
    const QStringList relations = HtmlTree::attribute(element, "rel").toLower().simplified().split(u' ');
    const bool isTouchIcon = relations.contains(QLatin1String("apple-touch-icon"))
        || relations.contains(QLatin1String("apple-touch-icon-precomposed"));
    const QString href = HtmlTree::attribute(element, "href");
    if (href.isEmpty() || !(isTouchIcon || relations.contains(QLatin1String("icon"))))
        return;
    if (m_page.icons.size() < Page::mostIcons)
        m_page.icons.append(IconLink{ href, HtmlTree::attribute(element, "sizes"), HtmlTree::attribute(element, "type"),
                                      HtmlTree::attribute(element, "media"), isTouchIcon });
}

void PageReader::takeCharacterSet(const QString& label)
{
    if (m_characterSet.isEmpty())
        m_characterSet = characterSetOf(label.toLatin1()).value_or(QByteArray());
}

/// The character set that the declaration of an XML document names, or empty.
[[nodiscard]] QByteArray declaredSet(const QByteArray& bytes)
{
    static const QRegularExpression declaration(
        QStringLiteral("^\\s*<\\?xml\\s[^>]*encoding\\s*=\\s*[\"']([^\"'>]*)[\"']"));
    const auto match = declaration.match(QString::fromLatin1(bytes.first(qMin<qsizetype>(bytes.size(), 1024))));
    return characterSetOf(match.captured(1).toLatin1()).value_or(QByteArray());
}

} // namespace

Page readPage(const QByteArray& bytes, const QByteArray& contentType)
{
    const bool isXhtml = contentType.toLower().contains("xhtml");
    QByteArray set = markedSet(bytes);
    if (set.isEmpty())
        set = characterSetOf(charsetParameter(contentType)).value_or(QByteArray());
    const bool isCertain = !set.isEmpty();
    const QByteArray text = parsed(bytes, isCertain ? set : QByteArray("UTF-8"), isXhtml);
    const HtmlTree tree(text);
    const PageReader reader(tree);
    QByteArray said = declaredSet(bytes);
    if (said.isEmpty())
        said = reader.characterSet();
    // A declaration of UTF-16 is ignored: it could be read as UTF-8, so the page does not have two-byte units.
    if (isCertain || said.isEmpty() || said.startsWith("UTF-"))
        return reader.page();
    const QByteArray otherText = parsed(bytes, said, isXhtml);
    return PageReader(HtmlTree(otherText)).page();
}

} // namespace nookle
