#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <optional>

namespace nookle {

/// A tag, or what stands in a `title`.
struct MarkupPiece {
    enum class Kind { startTag, endTag, title, xmlDeclaration };

    Kind kind = Kind::startTag;
    /// Of a tag, in lower case.
    QByteArray name;
    /// As it stands in the page. A tag with its brackets, a title without its tags.
    QByteArray source;
    /// Whether a start tag ends with "/>".
    bool isSelfClosing = false;
};

/// Cuts a page into its tags as it arrives, in UTF-8: byte for byte, so that it does not matter how the bytes are
/// grouped, and in linear time whatever they are. Comments, scripts and styles are left out, and so is text but for the
/// one of `title`.
class MarkupScanner final {
public:
    enum class Syntax {
        html,
        /// An empty element ends with its own tag.
        xhtml,
    };

    /// A tag with more attributes than this is left out.
    inline static constexpr int maximumAttributes = 256;
    /// What a title has beyond this is left out.
    inline static constexpr qsizetype maximumTitle = 16'384;

    explicit MarkupScanner(Syntax syntax);

    /// Takes the next byte. Returns the piece that it completes.
    [[nodiscard]] std::optional<MarkupPiece> take(char byte);

    /// The title that the page breaks off in.
    [[nodiscard]] std::optional<MarkupPiece> finish();

private:
    enum class State {
        text,
        tagOpen,
        endTagOpen,
        tagName,
        beforeAttribute,
        attributeName,
        afterAttributeName,
        beforeValue,
        doubleQuoted,
        singleQuoted,
        unquoted,
        declarationOpen,
        bogusComment,
        comment,
        rawText,
    };

    void takeTagOpen(char byte);
    void takeEndTagOpen(char byte);
    [[nodiscard]] std::optional<MarkupPiece> takeInTag(char byte);
    void takeTagName(char byte);
    void takeAttribute(char byte);
    void takeAttributeName(char byte);
    void beginValue(char byte);
    void takeDeclarationOpen(char byte);
    void takeComment(char byte);
    [[nodiscard]] std::optional<MarkupPiece> takeBogusComment(char byte);
    [[nodiscard]] std::optional<MarkupPiece> takeRawText(char byte);

    void beginTag(bool isEndTag, char byte);
    [[nodiscard]] std::optional<MarkupPiece> endTag();
    [[nodiscard]] MarkupPiece endTitle();
    void appendRawText(QByteArrayView bytes);

    Syntax m_syntax;
    State m_state = State::text;
    /// The tag or declaration under way.
    QByteArray m_source;
    QByteArray m_name;
    bool m_isEndTag = false;
    int m_attributes = 0;
    /// How a comment ends so far: with how many hyphens, or with two of them and an exclamation mark.
    qsizetype m_hyphens = 0;
    bool m_hasBang = false;
    /// The element whose content is no markup, and what may be the beginning of its end tag.
    QByteArray m_rawElement;
    QByteArray m_candidate;
    QByteArray m_title;
};

} // namespace nookle
