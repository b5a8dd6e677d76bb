#include "Thumbnail.h"

#include "Colors.h"
#include "DrawnPicture.h"
#include "FileIcon.h"
#include "IconPicture.h"
#include "PixelGrid.h"
#include "Symbol.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QPixmap pixmap(const Picture& picture)
{
    constexpr qsizetype bytesPerPixel = 4;
    const qsizetype bytesPerLine = picture.width * bytesPerPixel;
    if (picture.width <= 0 || picture.height <= 0 || picture.pixels.size() < bytesPerLine * picture.height)
        return {};
    const QImage image(reinterpret_cast<const uchar*>(picture.pixels.constData()), picture.width, picture.height,
                       bytesPerLine, QImage::Format_ARGB32_Premultiplied);
    // Copied, because the image only borrows the bytes, and the pixmap may share the image's data.
    return QPixmap::fromImage(image.copy());
}

} // namespace

Thumbnail::Thumbnail(ThumbnailGenerator& thumbnails, std::function<void()> onChanged)
    : m_thumbnails(thumbnails)
    , m_onChanged(std::move(onChanged))
{
}

void Thumbnail::setUrl(const std::optional<QUrl>& url, bool isFolder)
{
    if (url == m_url && isFolder == m_isFolder)
        return;
    m_url = url;
    m_isFolder = isFolder;
    m_requestedScale.reset();
    m_request.reset();
    m_thumbnail = {};
    m_icon = url ? fileIcon(*url, isFolder) : QIcon();
}

void Thumbnail::load(double displayScale)
{
    if (!m_url || m_requestedScale == displayScale)
        return;
    m_requestedScale = displayScale;
    m_request = m_thumbnails.request(*m_url, previewSize, displayScale, [this](const std::optional<Picture>& picture) {
        if (!picture)
            return;
        m_thumbnail = pixmap(*picture);
        m_onChanged();
    });
}

void Thumbnail::paintIcon(QPainter& painter, const QRect& box) const
{
    if (m_icon.isNull())
        drawSymbol(painter, Symbol::document, SymbolWeight::light, box, secondaryColor(QGuiApplication::palette()));
    else
        drawPicture(painter, box, iconPicture(m_icon, box.width() * PixelGrid(painter).scale()));
}

void Thumbnail::paint(QPainter& painter, const QRect& box) const
{
    if (m_thumbnail.isNull()) {
        paintIcon(painter, box);
        return;
    }
    drawPicture(painter, box, m_thumbnail);
}

} // namespace nookle
