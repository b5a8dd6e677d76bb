#include "MenuBarIcon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <algorithm>

namespace nookle {

namespace {

// The shapes below are defined on a square of this size.
inline constexpr double canvasSize = 18;
inline constexpr double lineWidth = 1.3;
inline constexpr double smileWidth = 0.9;

[[nodiscard]] QString themeName()
{
    return QStringLiteral("org.nookle.Nookle-symbolic");
}

[[nodiscard]] QPainterPath cardPath(const QRectF& frame, double degrees)
{
    constexpr double cornerRadius = 0.9;
    QPainterPath card;
    card.addRoundedRect(frame, cornerRadius, cornerRadius);
    QTransform turn;
    turn.translate(frame.center().x(), frame.center().y());
    turn.rotate(degrees);
    turn.translate(-frame.center().x(), -frame.center().y());
    return turn.map(card);
}

[[nodiscard]] QPainterPath backCardPath()
{
    return cardPath(QRectF(4.0, 2.0, 4.8, 7.6), -11);
}

[[nodiscard]] QPainterPath frontCardPath()
{
    return cardPath(QRectF(8.7, 2.7, 5.0, 6.8), 9);
}

[[nodiscard]] QPainterPath trayPath()
{
    QPainterPath tray;
    tray.setFillRule(Qt::WindingFill);
    tray.moveTo(2, 8.6);
    tray.quadTo(9, 7.3, 16, 8.6);
    tray.lineTo(16, 14);
    tray.quadTo(16, 16, 14, 16);
    tray.lineTo(4, 16);
    tray.quadTo(2, 16, 2, 14);
    tray.closeSubpath();
    return tray;
}

[[nodiscard]] QPainterPath smilePath()
{
    QPainterPath smile;
    smile.moveTo(8.1, 13);
    smile.quadTo(9, 13.9, 9.9, 13);
    return smile;
}

[[nodiscard]] QPen linePen(const QColor& color, double width)
{
    return { color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin };
}

/// Clears the area of a shape. With a single colour, a shape cannot be painted over.
void erase(QPainter& painter, const QPainterPath& shape, const QPen& outline)
{
    painter.save();
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.setPen(outline);
    painter.setBrush(Qt::black);
    painter.drawPath(shape);
    painter.restore();
}

/// `painter` must paint on a layer of its own, because `erase` clears everything below a shape.
void drawShapes(QPainter& painter, const QColor& color)
{
    const QPen line = linePen(color, lineWidth);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(line);
    painter.drawPath(backCardPath());
    erase(painter, frontCardPath(), line);
    painter.drawPath(frontCardPath());
    erase(painter, trayPath(), Qt::NoPen);
    painter.drawPath(trayPath());

    painter.setPen(linePen(color, smileWidth));
    painter.drawPath(smilePath());
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(QRectF(6.1, 10.6, 1.6, 1.6));
    painter.drawEllipse(QRectF(10.3, 10.6, 1.6, 1.6));
}

class Engine final : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State /*state*/) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        MenuBarIcon::draw(*painter, rect, QGuiApplication::palette().color(group, QPalette::WindowText));
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, pixmap.rect(), mode, state);
        return pixmap;
    }

    // The sizes that are sent to a tray which cannot scale the icon itself.
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        QList<QSize> sizes;
        for (const int side : { 16, 18, 22, 24, 32, 36, 48, 64 })
            sizes.append(QSize(side, side));
        return sizes;
    }

    QSize actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override { return size; }
    QString iconName() override { return QIcon::hasThemeIcon(themeName()) ? themeName() : QString(); }
    QIconEngine* clone() const override { return new Engine(*this); }
};

} // namespace

QIcon MenuBarIcon::make()
{
    // The icon owns its engine.
    return QIcon(new Engine);
}

void MenuBarIcon::draw(QPainter& painter, const QRectF& box, const QColor& color)
{
    if (!painter.isActive() || box.isEmpty())
        return;
    const double scale = std::min(box.width(), box.height()) / canvasSize;
    const double ratio = painter.device()->devicePixelRatioF();
    const QSizeF layerSize = QSizeF(canvasSize, canvasSize) * scale;
    QImage layer((layerSize * ratio).toSize().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    layer.setDevicePixelRatio(ratio);
    layer.fill(Qt::transparent);
    QPainter onLayer(&layer);
    onLayer.scale(scale, scale);
    drawShapes(onLayer, color);
    onLayer.end();
    QRectF target(QPointF(), layerSize);
    target.moveCenter(box.center());
    painter.drawImage(target.topLeft(), layer);
}

} // namespace nookle
