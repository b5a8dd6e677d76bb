#pragma once

#include "CharacterDecoder.h"
#include "IconLink.h"
#include "MarkupScanner.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QList>
#include <QString>

#include <memory>
#include <optional>

namespace nookle {

/// Reads the head of a web page as its bytes arrive. How they are grouped makes no difference.
class PageHead final {
public:
    inline static constexpr qsizetype maximumIcons = 64;

    /// `contentType` is what the server says, which decides on the character set before the page itself does.
    explicit PageHead(const QByteArray& contentType);

    /// Takes the next bytes, until the head is over.
    void feed(QByteArrayView bytes);

    /// Takes the end of the page, or of what is read of it.
    void finish();

    /// Whether nothing that is still to come makes a difference.
    [[nodiscard]] bool isOver() const { return m_isOver; }

    /// The title, ready to be shown. None when the page has none or an empty one.
    [[nodiscard]] std::optional<QString> title() const;

    [[nodiscard]] const QList<IconLink>& icons() const { return m_found.icons; }

    /// What addresses in the page are relative to, itself relative to the page's. Empty when the page does not say.
    [[nodiscard]] QString baseHref() const { return m_found.baseHref.value_or(QString()); }

private:
    struct Found {
        std::optional<QString> openGraphTitle;
        std::optional<QString> title;
        std::optional<QString> baseHref;
        QList<IconLink> icons;
    };

    [[nodiscard]] bool hasTitle() const { return m_found.openGraphTitle || m_found.title; }
    void beginDecoding();
    void useSet(const QByteArray& set);
    /// True when all was read anew, in the set of that name.
    bool decodeAgain(const QByteArray& label);
    void scan(const QByteArray& text);
    void take(const MarkupPiece& piece);
    void takeStartTag(const MarkupPiece& tag);
    void beginSkipping(const MarkupPiece& tag);
    void takeEndTag(const QByteArray& name);
    void takeTitle(const MarkupPiece& piece);
    void takeMeta(const MarkupPiece& tag);
    void takeLink(const MarkupPiece& tag);
    void takeBase(const MarkupPiece& tag);

    MarkupScanner::Syntax m_syntax;
    QByteArray m_headerCharset;
    /// All bytes so far, as long as the page may still say that it is in another character set.
    QByteArray m_bytes;
    bool m_isSetCertain = false;
    std::unique_ptr<CharacterDecoder> m_decoder;
    /// What the page itself says about its character set, to be acted upon.
    QByteArray m_wantedSet;

    MarkupScanner m_scanner;
    /// The element whose content is not the page's own head, and how deep in it the scanner is.
    QByteArray m_skippedElement;
    int m_skippedDepth = 0;
    Found m_found;
    bool m_isOver = false;
};

} // namespace nookle
