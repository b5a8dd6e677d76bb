#pragma once

#include "DragSession.h"
#include "ShelfItem.h"
#include "Thumbnail.h"
#include "TileMetrics.h"

#include <QPixmap>
#include <QUrl>
#include <QWidget>

#include <optional>

namespace nookle {

class ItemInteractionView;

/// One tile: a preview with the item's name below it. The interaction view, which covers the tile, handles all mouse
/// events.
class ShelfItemView final : public QWidget {
    Q_OBJECT

public:
    /// `metrics` and `thumbnails` must outlive the tile.
    ShelfItemView(QWidget* parent, const TileMetrics& metrics, ThumbnailGenerator& thumbnails, DragRunner runDrag);

    /// Shows `item`. `localURL` is its file or folder on disk, none if that is missing. `iconURL` is the saved icon of
    /// a link.
    void setItem(const ShelfItem& item, const std::optional<QUrl>& localURL, bool isFolder,
                 const std::optional<QUrl>& iconURL);
    [[nodiscard]] const QUuid& itemId() const { return m_item.id; }

    void setHovered(bool isHovered);
    /// How much of the tile is there: 1 all of it, 0 nothing, between them it is seen through.
    void setPresence(double presence);
    void setSelected(bool isSelected);
    /// Shows whether this tile has the keyboard focus.
    void setFocused(bool isFocused);

    /// The thumbnail of a file or an image, or the icon of a link. Null until it has arrived, and for items without a
    /// file.
    [[nodiscard]] const QPixmap& thumbnail() const { return m_thumbnail.picture(); }

    [[nodiscard]] ItemInteractionView& interaction() { return *m_interaction; }
    [[nodiscard]] const ItemInteractionView& interaction() const { return *m_interaction; }

    [[nodiscard]] bool isFocused() const { return m_isFocused; }
    [[nodiscard]] bool isSelected() const { return m_isSelected; }
    [[nodiscard]] bool isHovered() const { return m_isHovered; }
    [[nodiscard]] double presence() const { return m_presence; }

    /// Whether the item is a referenced file that is missing. `isFound` has no effect on other kinds of items.
    [[nodiscard]] static bool isUnavailable(const ShelfItem& item, bool isFound);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QString description() const;
    void paintBackground(QPainter& painter, const QPalette& colors) const;
    void paintPreview(QPainter& painter, const QRect& box, const QPalette& colors);
    void paintFile(QPainter& painter, const QRect& box, const QPalette& colors);
    void paintLink(QPainter& painter, const QRect& box);
    void paintName(QPainter& painter, int top, const QPalette& colors) const;

    const TileMetrics& m_metrics;
    ShelfItem m_item;
    Thumbnail m_thumbnail;
    bool m_isUnavailable = false;
    bool m_isMissing = false;
    bool m_isHovered = false;
    bool m_isFocused = false;
    bool m_isSelected = false;
    double m_presence = 1;
    ItemInteractionView* m_interaction;
};

} // namespace nookle
