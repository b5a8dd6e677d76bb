#pragma once

#include <QImage>
#include <QRect>

#include <array>

class QPainter;

namespace nookle {

/// The parts of the shadow of a panel that has round corners on its left and goes on beyond the screen's edge on its
/// right. Lengths are in pixels. The colours are premultiplied with their opacity.
struct ShadowPictures {
    explicit ShadowPictures(int cornerRadius);

    /// How far the shadow of a panel with corners of that radius reaches beyond it.
    [[nodiscard]] static int extentFor(int cornerRadius) { return 2 * cornerRadius; }

    /// A picture and the area that is filled with copies of it.
    struct Part {
        const QImage& picture;
        QRect area;
    };

    /// What the shadow around `panel` consists of. No part lies on the panel, except for what its round corners leave
    /// free.
    [[nodiscard]] std::array<Part, 5> parts(const QRect& panel) const;

    /// Draws the shadow around `panel`, which is given in pixels of the painter's device. Draws nothing on the panel.
    void draw(QPainter& painter, const QRect& panel) const;

    /// How far the shadow reaches beyond the panel.
    int extent;
    /// Squares of this side: the extent and the radius.
    int corner;
    QImage upperLeft;
    QImage lowerLeft;
    /// Parts of the edges, which are the same all along.
    QImage above;
    QImage below;
    QImage left;
};

} // namespace nookle
