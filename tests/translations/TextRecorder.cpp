#include "TextRecorder.h"

#include <QFontMetricsF>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPixmap>
#include <QRegion>

namespace nookle {

class TextRecorder::Engine final : public QPaintEngine {
public:
    explicit Engine(QList<DrawnText>& texts)
        : QPaintEngine(AllFeatures)
        , m_texts(texts)
    {
    }

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState& newState) override
    {
        if (newState.state().testFlag(DirtyTransform))
            m_transform = newState.transform();
        // One painting draws many widgets, and says of none that the system's clip is another.
        if (systemClip() != m_widgetClip) {
            m_widgetClip = systemClip();
            m_room = m_widgetClip;
        }
        if (newState.state().testAnyFlags(DirtyClipRegion | DirtyClipPath))
            updateRoom(newState);
    }
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    void drawPixmap(const QRectF& /*place*/, const QPixmap& /*pixmap*/, const QRectF& /*source*/) override {}
    void drawTextItem(const QPointF& position, const QTextItem& item) override
    {
        // Signs that only turn the direction of the text show nothing.
        if (qFuzzyIsNull(item.width()))
            return;
        const QRectF place(position.x(), position.y() - item.ascent(), item.width(), item.ascent() + item.descent());
        m_texts.append({ item.text(), m_transform.mapRect(place), m_room.boundingRect() });
    }
    [[nodiscard]] Type type() const override { return User; }

private:
    void updateRoom(const QPaintEngineState& newState)
    {
        if (newState.clipOperation() != Qt::IntersectClip)
            m_room = m_widgetClip;
        if (newState.clipOperation() == Qt::NoClip)
            return;
        const QRegion clip = newState.state().testFlag(DirtyClipPath)
            ? QRegion(newState.clipPath().boundingRect().toAlignedRect())
            : newState.clipRegion();
        m_room &= m_transform.map(clip);
    }

    QList<DrawnText>& m_texts;
    QTransform m_transform;
    QRegion m_widgetClip;
    QRegion m_room;
};

TextRecorder::TextRecorder(QSize size)
    : m_size(size)
    , m_engine(std::make_unique<Engine>(m_texts))
{
}

TextRecorder::~TextRecorder() = default;

QPaintEngine* TextRecorder::paintEngine() const
{
    return m_engine.get();
}

int TextRecorder::metric(PaintDeviceMetric metric) const
{
    constexpr int dotsPerInch = 96;
    if (metric == PdmWidth)
        return m_size.width();
    if (metric == PdmHeight)
        return m_size.height();
    if (metric == PdmDevicePixelRatio)
        return 1;
    if (metric == PdmDevicePixelRatioScaled)
        return static_cast<int>(devicePixelRatioFScale());
    if (metric == PdmDpiX || metric == PdmDpiY || metric == PdmPhysicalDpiX || metric == PdmPhysicalDpiY)
        return dotsPerInch;
    return QPaintDevice::metric(metric);
}

} // namespace nookle
