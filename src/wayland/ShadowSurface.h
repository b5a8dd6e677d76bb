#pragma once

#include <QRasterWindow>

namespace nookle {

/// The shadow of the panel, in a surface of its own that belongs to the panel's: it lies around that one, and the
/// compositor moves both together. It takes no input, and its pictures take memory for as long as it exists. It ends
/// with the panel's right edge, so that nothing of it shows on another display. Main thread only.
class ShadowSurface final : public QRasterWindow {
    Q_OBJECT

public:
    /// The points above and below the panel that are part of its display.
    struct Room {
        int above;
        int below;

        [[nodiscard]] bool operator==(const Room& other) const = default;
    };

    /// Shows the shadow of a panel that is shown, for left corners of that radius in points. Destroy it before the
    /// panel is hidden.
    ShadowSurface(QWindow& panel, double cornerRadius, const Room& room);
    ~ShadowSurface() override;

    [[nodiscard]] const Room& room() const { return m_room; }

    /// Draws the shadow of a content that is `offset` points to the right of its place in the panel.
    void slide(double offset);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void layOut();

    QWindow& m_panel;
    double m_cornerRadius;
    Room m_room;
    /// How far the surface reaches beyond the panel, in points.
    int m_left;
    int m_above;
    int m_below;
    double m_offset = 0;
};

} // namespace nookle
