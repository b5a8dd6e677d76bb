#pragma once

#include <QList>
#include <QPaintDevice>
#include <QRectF>
#include <QString>

#include <memory>

namespace nookle {

/// A piece of text that was drawn: a line, or a part of it in one script.
struct DrawnText {
    QString text;
    /// The place that it takes.
    QRectF place;
    /// What its widget shows of it.
    QRectF room;
};

/// Draws nothing, and records which texts were drawn where.
class TextRecorder final : public QPaintDevice {
public:
    explicit TextRecorder(QSize size);
    ~TextRecorder() override;

    [[nodiscard]] const QList<DrawnText>& texts() const { return m_texts; }

    [[nodiscard]] QPaintEngine* paintEngine() const override;

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override;

private:
    class Engine;

    QSize m_size;
    QList<DrawnText> m_texts;
    std::unique_ptr<Engine> m_engine;
};

} // namespace nookle
