#pragma once

#include <QImage>
#include <QPaintDevice>

#include <memory>

namespace nookle {

class OmittingEngine;

/// Draws what is painted on it into a picture, without one thing: a filled or stroked shape, a picture, a piece of
/// text.
class OmittingDevice : public QPaintDevice {
public:
    /// Omits the thing of that number, which is from 0.
    OmittingDevice(QImage& picture, int omitted);
    ~OmittingDevice() override;

    /// How many things were painted, with the omitted one.
    [[nodiscard]] int count() const;

    [[nodiscard]] QPaintEngine* paintEngine() const override;

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override;

private:
    QSize m_size;
    double m_scale;
    /// Has the size in pixels alone: the painter of the device brings the scale.
    QImage m_canvas;
    std::unique_ptr<OmittingEngine> m_engine;
};

} // namespace nookle
