#pragma once

#include <QByteArray>

namespace nookle {

/// A picture as raw pixels, in rows from the top without padding. Each pixel is four bytes: 0xAARRGGBB in the machine's
/// byte order, with premultiplied alpha.
struct Picture {
    int width = 0;
    int height = 0;
    QByteArray pixels;

    bool operator==(const Picture&) const = default;
};

} // namespace nookle
