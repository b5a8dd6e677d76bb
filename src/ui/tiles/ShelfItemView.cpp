#include "ShelfItemView.h"

#include "Cards.h"
#include "Colors.h"
#include "ItemInteractionView.h"
#include "Highlight.h"
#include "Overloaded.h"
#include "SelectedPalette.h"
#include "Symbol.h"

#include <QPainter>
#include <QResizeEvent>

#include <utility>

namespace nookle {

namespace {

inline constexpr int padding = TileMetrics::padding;
inline constexpr int spacing = TileMetrics::spacing;
inline constexpr int missingSymbolSize = 36;
inline constexpr int badgeSize = 12;
inline constexpr int badgePadding = 5;
inline constexpr double cornerRadius = 8;
inline constexpr int selectedFrameInset = 3;
inline constexpr double unavailableOpacity = 0.5;

} // namespace

ShelfItemView::ShelfItemView(QWidget* parent, const TileMetrics& metrics, ThumbnailGenerator& thumbnails,
                             DragRunner runDrag)
    : QWidget(parent)
    , m_metrics(metrics)
    , m_thumbnail(thumbnails, [this] { update(); })
    , m_interaction(new ItemInteractionView(this, std::move(runDrag)))
{
}

bool ShelfItemView::isUnavailable(const ShelfItem& item, bool isFound)
{
    return std::holds_alternative<FileContent>(item.content) && !isFound;
}

void ShelfItemView::setItem(const ShelfItem& item, const std::optional<QUrl>& localURL, bool isFolder,
                            const std::optional<QUrl>& iconURL)
{
    m_item = item;
    m_isUnavailable = isUnavailable(item, localURL.has_value());
    const bool hasFile =
        std::holds_alternative<FileContent>(item.content) || std::holds_alternative<ImageContent>(item.content);
    m_isMissing = hasFile && !localURL;
    m_thumbnail.setUrl(iconURL ? iconURL : localURL, isFolder);
    setAccessibleName(item.shownName());
    setAccessibleDescription(description());
    update();
}

QString ShelfItemView::description() const
{
    const QString kind = std::visit(overloaded{
                                        [](const FileContent&) { return tr("File"); },
                                        [](const TextContent&) { return tr("Text"); },
                                        [](const LinkContent&) { return tr("Link"); },
                                        [](const ImageContent&) { return tr("Image"); },
                                    },
                                    m_item.content);
    QStringList facts{ kind };
    if (m_item.pinned)
        facts.append(tr("pinned"));
    if (m_isMissing)
        facts.append(tr("unavailable"));
    return facts.join(tr(", ", "between the facts about an item"));
}

void ShelfItemView::setHovered(bool isHovered)
{
    if (std::exchange(m_isHovered, isHovered) != isHovered)
        update();
}

void ShelfItemView::setPresence(double presence)
{
    if (std::exchange(m_presence, presence) != presence)
        update();
}

void ShelfItemView::setFocused(bool isFocused)
{
    if (std::exchange(m_isFocused, isFocused) != isFocused)
        update();
}

void ShelfItemView::setSelected(bool isSelected)
{
    if (std::exchange(m_isSelected, isSelected) != isSelected)
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
    painter.setOpacity(m_presence);
    const QPalette colors = m_isSelected ? selectedPalette(palette()) : palette();
    paintBackground(painter, colors);
    painter.setOpacity(m_presence * (m_isUnavailable ? unavailableOpacity : 1));
    const QRect box((width() - previewSize) / 2, padding, previewSize, previewSize);
    paintPreview(painter, box, colors);
    paintName(painter, box.bottom() + 1 + spacing, colors);
    painter.setOpacity(m_presence);
    if (m_item.pinned) {
        const QRect badge(width() - badgePadding - badgeSize, badgePadding, badgeSize, badgeSize);
        drawSymbol(painter, Symbol::pinFill, SymbolWeight::semibold, badge, accentColor(colors));
    }
}

void ShelfItemView::paintBackground(QPainter& painter, const QPalette& colors) const
{
    if (m_isSelected)
        paintSelection(painter, rect(), cornerRadius, colors);
    if (m_isHovered)
        paintHighlight(painter, rect(), cornerRadius, colors, hoverOpacity);
    const int inset = m_isSelected ? selectedFrameInset : 0;
    if (m_isFocused)
        paintFocusFrame(painter, rect().adjusted(inset, inset, -inset, -inset), cornerRadius - inset, colors);
}

// A page and a card have a ground of their own, and the colours of the panel.
void ShelfItemView::paintPreview(QPainter& painter, const QRect& box, const QPalette& colors)
{
    std::visit(overloaded{
                   [&](const FileContent&) { paintFile(painter, box, colors); },
                   [&](const TextContent& text) { paintTextPage(painter, box, text.text, palette()); },
                   [&](const LinkContent&) { paintLink(painter, box); },
                   [&](const ImageContent&) { paintFile(painter, box, colors); },
               },
               m_item.content);
}

void ShelfItemView::paintFile(QPainter& painter, const QRect& box, const QPalette& colors)
{
    if (!m_isMissing) {
        m_thumbnail.load(devicePixelRatioF());
        m_thumbnail.paint(painter, box);
        return;
    }
    QRectF place(0, 0, missingSymbolSize, missingSymbolSize);
    place.moveCenter(QRectF(box).center());
    drawSymbol(painter, Symbol::missingFile, SymbolWeight::light, place, secondaryColor(colors));
}

void ShelfItemView::paintLink(QPainter& painter, const QRect& box)
{
    m_thumbnail.load(devicePixelRatioF());
    paintLinkCard(painter, box, m_thumbnail.picture(), palette());
}

void ShelfItemView::paintName(QPainter& painter, int top, const QPalette& colors) const
{
    const int textWidth = width() - 2 * padding;
    const QFont& font = m_metrics.captionFont();
    QRect line(padding, top, textWidth, QFontMetrics(font).height());
    painter.setFont(font);
    painter.setPen(primaryColor(colors));
    // The name's own letters decide its writing direction, not the interface.
    painter.setLayoutDirection(Qt::LayoutDirectionAuto);
    for (const QString& text : m_metrics.nameLines(m_item.shownName(), textWidth)) {
        painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter, text);
        line.translate(0, line.height());
    }
    if (!m_isUnavailable)
        return;
    const QFont& smaller = m_metrics.smallerCaptionFont();
    painter.setFont(smaller);
    painter.setPen(secondaryColor(colors));
    line.translate(0, spacing);
    line.setHeight(QFontMetrics(smaller).height());
    painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter, tr("Unavailable"));
}

} // namespace nookle
