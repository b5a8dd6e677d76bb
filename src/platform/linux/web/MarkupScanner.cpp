#include "MarkupScanner.h"

#include <algorithm>
#include <array>
#include <utility>

namespace nookle {

namespace {

constexpr std::array rawElements{ "script", "style",  "title",    "textarea", "noscript",
                                  "xmp",    "iframe", "noframes", "noembed" };

[[nodiscard]] bool isSpace(char c)
{
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f';
}

[[nodiscard]] bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

[[nodiscard]] char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c;
}

[[nodiscard]] bool isRawElement(const QByteArray& name)
{
    return std::any_of(rawElements.begin(), rawElements.end(), [&](const char* raw) { return name == raw; });
}

} // namespace

MarkupScanner::MarkupScanner(Syntax syntax)
    : m_syntax(syntax)
{
}

std::optional<MarkupPiece> MarkupScanner::take(char byte)
{
    switch (m_state) {
    case State::text:
        if (byte == '<')
            m_state = State::tagOpen;
        return std::nullopt;
    case State::tagOpen:
        takeTagOpen(byte);
        return std::nullopt;
    case State::endTagOpen:
        takeEndTagOpen(byte);
        return std::nullopt;
    case State::declarationOpen:
        if (byte == '>')
            m_state = State::text;
        else
            takeDeclarationOpen(byte);
        return std::nullopt;
    case State::comment:
        takeComment(byte);
        return std::nullopt;
    case State::bogusComment:
        return takeBogusComment(byte);
    case State::rawText:
        return takeRawText(byte);
    default:
        return takeInTag(byte);
    }
}

std::optional<MarkupPiece> MarkupScanner::finish()
{
    if (m_state != State::rawText || m_rawElement != "title")
        return std::nullopt;
    m_state = State::text;
    return endTitle();
}

void MarkupScanner::takeTagOpen(char byte)
{
    if (isLetter(byte)) {
        beginTag(false, byte);
    } else if (byte == '/') {
        m_state = State::endTagOpen;
    } else if (byte == '!') {
        m_source.clear();
        m_state = State::declarationOpen;
    } else if (byte == '?') {
        m_source = "<?";
        m_state = State::bogusComment;
    } else if (byte != '<') {
        m_state = State::text;
    }
}

void MarkupScanner::takeEndTagOpen(char byte)
{
    m_source.clear();
    if (isLetter(byte))
        beginTag(true, byte);
    else
        m_state = byte == '>' ? State::text : State::bogusComment;
}

void MarkupScanner::beginTag(bool isEndTag, char byte)
{
    m_isEndTag = isEndTag;
    m_source = isEndTag ? QByteArray("</") : QByteArray("<");
    m_source += byte;
    m_name = QByteArray(1, lower(byte));
    m_attributes = 0;
    m_state = State::tagName;
}

std::optional<MarkupPiece> MarkupScanner::takeInTag(char byte)
{
    m_source += byte;
    if (byte == '>' && m_state != State::doubleQuoted && m_state != State::singleQuoted)
        return endTag();
    if (m_state == State::tagName)
        takeTagName(byte);
    else
        takeAttribute(byte);
    return std::nullopt;
}

void MarkupScanner::takeTagName(char byte)
{
    if (isSpace(byte) || byte == '/')
        m_state = State::beforeAttribute;
    else
        m_name += lower(byte);
}

void MarkupScanner::takeAttribute(char byte)
{
    switch (m_state) {
    case State::beforeAttribute:
        if (isSpace(byte) || byte == '/')
            return;
        ++m_attributes;
        m_state = State::attributeName;
        return;
    case State::attributeName:
    case State::afterAttributeName:
        return takeAttributeName(byte);
    case State::beforeValue:
        return beginValue(byte);
    case State::doubleQuoted:
        m_state = byte == '"' ? State::beforeAttribute : m_state;
        return;
    case State::singleQuoted:
        m_state = byte == '\'' ? State::beforeAttribute : m_state;
        return;
    default:
        m_state = isSpace(byte) ? State::beforeAttribute : State::unquoted;
    }
}

void MarkupScanner::takeAttributeName(char byte)
{
    if (byte == '=') {
        m_state = State::beforeValue;
    } else if (byte == '/') {
        m_state = State::beforeAttribute;
    } else if (isSpace(byte)) {
        m_state = State::afterAttributeName;
    } else if (m_state == State::afterAttributeName) {
        ++m_attributes;
        m_state = State::attributeName;
    }
}

void MarkupScanner::beginValue(char byte)
{
    if (byte == '"')
        m_state = State::doubleQuoted;
    else if (byte == '\'')
        m_state = State::singleQuoted;
    else if (!isSpace(byte))
        m_state = State::unquoted;
}

std::optional<MarkupPiece> MarkupScanner::endTag()
{
    const bool isSelfClosing = m_source.endsWith("/>") && m_state != State::unquoted;
    const bool isRaw = !m_isEndTag && isRawElement(m_name) && !(isSelfClosing && m_syntax == Syntax::xhtml);
    m_state = isRaw ? State::rawText : State::text;
    m_rawElement = m_name;
    m_candidate.clear();
    m_title.clear();
    MarkupPiece piece{ m_isEndTag ? MarkupPiece::Kind::endTag : MarkupPiece::Kind::startTag, std::exchange(m_name, {}),
                       std::exchange(m_source, {}), isSelfClosing };
    if (m_attributes > maximumAttributes)
        return std::nullopt;
    return piece;
}

void MarkupScanner::takeDeclarationOpen(char byte)
{
    m_source += byte;
    if (m_source == "-")
        return;
    m_state = m_source == "--" ? State::comment : State::bogusComment;
    // The hyphens that begin a comment may end it as well: "<!-->" is whole.
    m_hyphens = 2;
    m_hasBang = false;
}

void MarkupScanner::takeComment(char byte)
{
    if (byte == '>' && (m_hyphens >= 2 || m_hasBang))
        m_state = State::text;
    m_hasBang = byte == '!' && m_hyphens >= 2;
    m_hyphens = byte == '-' ? m_hyphens + 1 : 0;
}

std::optional<MarkupPiece> MarkupScanner::takeBogusComment(char byte)
{
    // Of all that stands here only the beginning of an XML declaration is of use.
    if (m_source.size() < 256)
        m_source += byte;
    if (byte != '>')
        return std::nullopt;
    m_state = State::text;
    if (!m_source.startsWith("<?xml"))
        return std::nullopt;
    return MarkupPiece{ MarkupPiece::Kind::xmlDeclaration, {}, std::exchange(m_source, {}), false };
}

std::optional<MarkupPiece> MarkupScanner::takeRawText(char byte)
{
    const qsizetype nameEnd = 2 + m_rawElement.size();
    if (m_candidate.size() == nameEnd && (isSpace(byte) || byte == '/' || byte == '>')) {
        m_state = byte == '>' ? State::text : State::beforeAttribute;
        m_isEndTag = true;
        m_name = m_rawElement;
        m_source = std::exchange(m_candidate, {}).append(byte);
        m_attributes = 0;
        return m_rawElement == "title" ? std::optional(endTitle()) : std::nullopt;
    }
    const qsizetype at = m_candidate.size();
    const bool isNext = (at == 0 && byte == '<') || (at == 1 && byte == '/')
        || (at >= 2 && at < nameEnd && lower(byte) == m_rawElement.at(at - 2));
    if (isNext) {
        m_candidate += byte;
        return std::nullopt;
    }
    appendRawText(std::exchange(m_candidate, {}));
    if (byte == '<')
        m_candidate = "<";
    else
        appendRawText(QByteArrayView(&byte, 1));
    return std::nullopt;
}

void MarkupScanner::appendRawText(QByteArrayView bytes)
{
    if (m_rawElement == "title" && m_title.size() < maximumTitle)
        m_title.append(bytes);
}

MarkupPiece MarkupScanner::endTitle()
{
    return MarkupPiece{ MarkupPiece::Kind::title, {}, std::exchange(m_title, {}), false };
}

} // namespace nookle
