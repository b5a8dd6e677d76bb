#pragma once

#include <QByteArray>

namespace nookle {

/// A picture as plain pixels: rows from the top, each pixel four bytes, 0xAARRGGBB in the machine's byte order with the
/// colours multiplied by the alpha, and no gap between two rows.
struct Picture {
    int width = 0;
    int height = 0;
    QByteArray pixels;

    bool operator==(const Picture&) const = default;
};

} // namespace nookle
