#include "ShadowSurface.h"

#include "ShadowPictures.h"

#include <QPainter>

#include <algorithm>

namespace nookle {

ShadowSurface::ShadowSurface(QWindow& panel, double cornerRadius, const Room& room)
    : QRasterWindow(&panel)
    , m_panel(panel)
    , m_cornerRadius(cornerRadius)
    , m_room(room)
    , m_left(ShadowPictures::extentFor(qRound(cornerRadius)))
    , m_above(std::min(m_left, room.above))
    , m_below(std::min(m_left, room.below))
{
    QSurfaceFormat transparent = format();
    transparent.setAlphaBufferSize(8);
    setFormat(transparent);
    setFlags(Qt::FramelessWindowHint | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    // The compositor gives the panel its size only once it is shown.
    connect(&m_panel, &QWindow::widthChanged, this, &ShadowSurface::layOut);
    connect(&m_panel, &QWindow::heightChanged, this, &ShadowSurface::layOut);
    layOut();
    show();
}

ShadowSurface::~ShadowSurface() = default;

void ShadowSurface::slide(double offset)
{
    if (m_offset == offset)
        return;
    m_offset = offset;
    update();
}

void ShadowSurface::layOut()
{
    setGeometry(-m_left, -m_above, m_left + m_panel.width(), m_above + m_panel.height() + m_below);
}

// In whole pixels, as the panel's own edges are.
void ShadowSurface::paintEvent(QPaintEvent* /*event*/)
{
    const double scale = devicePixelRatio();
    const auto pixels = [scale](double points) { return qRound(points * scale); };
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.scale(1 / scale, 1 / scale);
    const QRect panel(pixels(m_left + m_offset), pixels(m_above), pixels(m_panel.width()), pixels(m_panel.height()));
    ShadowPictures(pixels(m_cornerRadius)).draw(painter, panel);
}

} // namespace nookle
