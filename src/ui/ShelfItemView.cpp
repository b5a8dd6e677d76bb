#include "ShelfItemView.h"

#include "FileIcon.h"
#include "ItemInteractionView.h"
#include "Symbol.h"

#include <QPainter>
#include <QResizeEvent>

#include <utility>

namespace nookle {

namespace {

inline constexpr int padding = TileMetrics::padding;
inline constexpr int spacing = TileMetrics::spacing;
inline constexpr int previewSize = TileMetrics::previewSize;
inline constexpr int symbolSize = 34;
inline constexpr int badgeSize = 11;
inline constexpr int badgePadding = 5;
inline constexpr double cornerRadius = 8;
inline constexpr float hoverOpacity = 0.08F;
inline constexpr double unavailableOpacity = 0.5;

} // namespace

ShelfItemView::ShelfItemView(QWidget* parent, const TileMetrics& metrics, DragRunner runDrag)
    : QWidget(parent)
    , m_metrics(metrics)
    , m_interaction(new ItemInteractionView(this, std::move(runDrag)))
{
    setFont(metrics.captionFont());
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
    for (const QString& text : m_metrics.nameLines(m_item.displayName(), textWidth)) {
        painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter, text);
        line.translate(0, line.height());
    }
    if (!m_isUnavailable)
        return;
    const QFont& smaller = m_metrics.smallerCaptionFont();
    painter.setFont(smaller);
    painter.setPen(palette().color(QPalette::PlaceholderText));
    line.translate(0, spacing);
    line.setHeight(QFontMetrics(smaller).height());
    painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter, tr("Unavailable"));
}

} // namespace nookle
