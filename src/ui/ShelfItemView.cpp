#include "ShelfItemView.h"

#include "FileIcon.h"
#include "ItemInteractionView.h"
#include "Symbol.h"

#include <QFontDatabase>
#include <QPainter>
#include <QResizeEvent>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace nookle {

namespace {

inline constexpr int padding = 6;
inline constexpr int spacing = 4;
inline constexpr int previewSize = 52;
inline constexpr int symbolSize = 34;
inline constexpr int badgeSize = 11;
inline constexpr int badgePadding = 5;
inline constexpr double cornerRadius = 8;
inline constexpr float hoverOpacity = 0.08F;
inline constexpr double unavailableOpacity = 0.5;
inline constexpr double smallerCaptionScale = 0.9;

[[nodiscard]] QFont captionFont()
{
    return QFontDatabase::systemFont(QFontDatabase::SmallestReadableFont);
}

[[nodiscard]] QFont smallerCaptionFont()
{
    QFont font = captionFont();
    font.setPointSizeF(font.pointSizeF() * smallerCaptionScale);
    return font;
}

[[nodiscard]] QString onOneLine(QString text)
{
    std::replace_if(
        text.begin(), text.end(), [](QChar character) { return character.category() == QChar::Other_Control; },
        QChar::Space);
    return text;
}

/// Where the first line of `text` ends.
[[nodiscard]] int firstLineLength(const QString& text, const QFont& font, int width)
{
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(width);
    layout.endLayout();
    return line.textLength();
}

} // namespace

ShelfItemView::ShelfItemView(QWidget* parent, DragRunner runDrag)
    : QWidget(parent)
    , m_interaction(new ItemInteractionView(this, std::move(runDrag)))
{
    setFont(captionFont());
}

bool ShelfItemView::isUnavailable(const ShelfItem& item, const std::optional<QUrl>& localURL)
{
    return std::holds_alternative<FileContent>(item.content) && !localURL;
}

void ShelfItemView::setItem(const ShelfItem& item, const std::optional<QUrl>& localURL)
{
    m_item = item;
    m_isUnavailable = isUnavailable(item, localURL);
    const bool hasFile =
        std::holds_alternative<FileContent>(item.content) || std::holds_alternative<ImageContent>(item.content);
    m_isMissing = hasFile && !localURL;
    m_icon = localURL ? fileIcon(*localURL) : QIcon();
    setAccessibleName(item.displayName());
    update();
}

void ShelfItemView::setHovered(bool isHovered)
{
    if (std::exchange(m_isHovered, isHovered) != isHovered)
        update();
}

QStringList ShelfItemView::nameLines(const QString& name, const QFont& font, int width)
{
    const QString text = onOneLine(name);
    const QFontMetrics metrics(font);
    if (metrics.horizontalAdvance(text) <= width)
        return { text };
    const int length = firstLineLength(text, font, width);
    return { text.left(length).trimmed(), metrics.elidedText(text.mid(length).trimmed(), Qt::ElideMiddle, width) };
}

int ShelfItemView::heightFor(const ShelfItem& item, bool isUnavailable, int width)
{
    const QFont font = captionFont();
    const QFontMetrics metrics(font);
    const int textWidth = width - 2 * padding;
    const int lines = metrics.horizontalAdvance(onOneLine(item.displayName())) <= textWidth ? 1 : 2;
    const int unavailable = isUnavailable ? spacing + QFontMetrics(smallerCaptionFont()).height() : 0;
    return padding + previewSize + spacing + lines * metrics.height() + unavailable + padding;
}

void ShelfItemView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    m_interaction->setGeometry(rect());
}

void ShelfItemView::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_isHovered) {
        QColor highlight = palette().color(QPalette::WindowText);
        highlight.setAlphaF(hoverOpacity);
        painter.setPen(Qt::NoPen);
        painter.setBrush(highlight);
        painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
    }
    painter.setOpacity(m_isUnavailable ? unavailableOpacity : 1);
    const QRect box((width() - previewSize) / 2, padding, previewSize, previewSize);
    paintPreview(painter, box);
    paintName(painter, box.bottom() + 1 + spacing);
    painter.setOpacity(1);
    if (m_item.pinned) {
        const QRect badge(width() - badgePadding - badgeSize, badgePadding, badgeSize, badgeSize);
        drawSymbol(painter, Symbol::pinFill, badge, palette().color(QPalette::Highlight));
    }
}

void ShelfItemView::paintPreview(QPainter& painter, const QRect& box) const
{
    if (!m_icon.isNull()) {
        m_icon.paint(&painter, box);
        return;
    }
    QRect symbolBox(0, 0, symbolSize, symbolSize);
    symbolBox.moveCenter(box.center());
    const bool isLink = std::holds_alternative<LinkContent>(m_item.content);
    const Symbol symbol = m_isMissing ? Symbol::missingFile : isLink ? Symbol::link : Symbol::document;
    drawSymbol(painter, symbol, symbolBox, palette().color(QPalette::PlaceholderText));
}

void ShelfItemView::paintName(QPainter& painter, int top) const
{
    const int textWidth = width() - 2 * padding;
    QRect line(padding, top, textWidth, fontMetrics().height());
    painter.setFont(font());
    painter.setPen(palette().color(QPalette::WindowText));
    for (const QString& text : nameLines(m_item.displayName(), font(), textWidth)) {
        painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter, text);
        line.translate(0, line.height());
    }
    if (!m_isUnavailable)
        return;
    const QFont smaller = smallerCaptionFont();
    painter.setFont(smaller);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    line.translate(0, spacing);
    line.setHeight(QFontMetrics(smaller).height());
    painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter, tr("Unavailable"));
}

} // namespace nookle
