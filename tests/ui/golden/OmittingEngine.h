#pragma once

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QRegion>

namespace nookle {

/// What paints on an OmittingDevice: passes everything but one thing on to a painter of the picture.
class OmittingEngine : public QPaintEngine {
public:
    OmittingEngine(QImage& canvas, int omitted);

    [[nodiscard]] int count() const { return m_count; }

    bool begin(QPaintDevice* device) override;
    bool end() override;
    void updateState(const QPaintEngineState& newState) override;
    void drawPath(const QPainterPath& path) override;
    void drawPolygon(const QPointF* points, int pointCount, PolygonDrawMode mode) override;
    void drawPixmap(const QRectF& place, const QPixmap& pixmap, const QRectF& source) override;
    void drawTextItem(const QPointF& position, const QTextItem& item) override;
    [[nodiscard]] Type type() const override { return User; }

private:
    /// Counts the next thing, and says whether it is drawn.
    [[nodiscard]] bool isNextDrawn() { return m_count++ != m_omitted; }
    void clipToWidget();
    void updateClip(const QPaintEngineState& newState);

    QImage& m_canvas;
    QPainter m_painter;
    QRegion m_widgetClip;
    int m_omitted;
    int m_count = 0;
};

} // namespace nookle
