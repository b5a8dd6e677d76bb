#include "OmittingEngine.h"

#include <QPainterPath>
#include <QPixmap>

namespace nookle {

OmittingEngine::OmittingEngine(QImage& canvas, int omitted)
    : QPaintEngine(AllFeatures)
    , m_canvas(canvas)
    , m_omitted(omitted)
{
}

bool OmittingEngine::begin(QPaintDevice* /*device*/)
{
    m_widgetClip = QRegion();
    return m_painter.begin(&m_canvas);
}

bool OmittingEngine::end()
{
    return m_painter.end();
}

void OmittingEngine::updateState(const QPaintEngineState& newState)
{
    const DirtyFlags changed = newState.state();
    if (changed.testFlag(DirtyTransform))
        m_painter.setTransform(newState.transform());
    if (changed.testFlag(DirtyPen))
        m_painter.setPen(newState.pen());
    if (changed.testFlag(DirtyBrush))
        m_painter.setBrush(newState.brush());
    if (changed.testFlag(DirtyBrushOrigin))
        m_painter.setBrushOrigin(newState.brushOrigin());
    if (changed.testFlag(DirtyFont))
        m_painter.setFont(newState.font());
    if (changed.testFlag(DirtyOpacity))
        m_painter.setOpacity(newState.opacity());
    if (changed.testFlag(DirtyCompositionMode))
        m_painter.setCompositionMode(newState.compositionMode());
    if (changed.testFlag(DirtyHints)) {
        m_painter.setRenderHints(m_painter.renderHints(), false);
        m_painter.setRenderHints(newState.renderHints());
    }
    // One painting draws many widgets, and says of none that the system's clip is another.
    if (systemClip() != m_widgetClip)
        clipToWidget();
    if (changed.testAnyFlags(DirtyClipRegion | DirtyClipPath))
        updateClip(newState);
}

// What the widget itself shows of the canvas is the system's clip, in pixels.
void OmittingEngine::clipToWidget()
{
    m_widgetClip = systemClip();
    if (m_widgetClip.isEmpty()) {
        m_painter.setClipping(false);
        return;
    }
    const QTransform transform = m_painter.transform();
    m_painter.resetTransform();
    m_painter.setClipRegion(m_widgetClip);
    m_painter.setTransform(transform);
}

void OmittingEngine::updateClip(const QPaintEngineState& newState)
{
    if (newState.clipOperation() != Qt::IntersectClip)
        clipToWidget();
    if (newState.clipOperation() == Qt::NoClip)
        return;
    if (newState.state().testFlag(DirtyClipPath))
        m_painter.setClipPath(newState.clipPath(), Qt::IntersectClip);
    else
        m_painter.setClipRegion(newState.clipRegion(), Qt::IntersectClip);
}

void OmittingEngine::drawPath(const QPainterPath& path)
{
    if (isNextDrawn())
        m_painter.drawPath(path);
}

void OmittingEngine::drawPolygon(const QPointF* points, int pointCount, PolygonDrawMode mode)
{
    if (!isNextDrawn())
        return;
    if (mode == PolylineMode)
        m_painter.drawPolyline(points, pointCount);
    else
        m_painter.drawPolygon(points, pointCount, mode == OddEvenMode ? Qt::OddEvenFill : Qt::WindingFill);
}

void OmittingEngine::drawPixmap(const QRectF& place, const QPixmap& pixmap, const QRectF& source)
{
    if (isNextDrawn())
        m_painter.drawPixmap(place, pixmap, source);
}

void OmittingEngine::drawTextItem(const QPointF& position, const QTextItem& item)
{
    if (isNextDrawn())
        m_painter.drawTextItem(position, item);
}

} // namespace nookle
