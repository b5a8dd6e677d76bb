#include "OmittingDevice.h"

#include "OmittingEngine.h"

namespace nookle {

OmittingDevice::OmittingDevice(QImage& picture, int omitted)
    : m_size(picture.size())
    , m_scale(picture.devicePixelRatio())
    , m_canvas(picture.bits(), picture.width(), picture.height(), picture.bytesPerLine(), picture.format())
    , m_engine(std::make_unique<OmittingEngine>(m_canvas, omitted))
{
}

OmittingDevice::~OmittingDevice() = default;

int OmittingDevice::count() const
{
    return m_engine->count();
}

QPaintEngine* OmittingDevice::paintEngine() const
{
    return m_engine.get();
}

int OmittingDevice::metric(PaintDeviceMetric metric) const
{
    if (metric == PdmWidth)
        return m_size.width();
    if (metric == PdmHeight)
        return m_size.height();
    if (metric == PdmDevicePixelRatio)
        return static_cast<int>(m_scale);
    if (metric == PdmDevicePixelRatioScaled)
        return static_cast<int>(m_scale * devicePixelRatioFScale());
    if (metric == PdmDpiX || metric == PdmDpiY || metric == PdmPhysicalDpiX || metric == PdmPhysicalDpiY)
        return m_canvas.logicalDpiX();
    return QPaintDevice::metric(metric);
}

} // namespace nookle
