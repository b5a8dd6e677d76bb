#pragma once

#include <QString>

namespace nookle {

/// A `link` of a page that names an icon, as the page says it.
struct IconLink {
    QString href;
    /// The pixels that it says it has, such as "16x16 32x32" or "any".
    QString sizes;
    QString type;
    QString media;
    bool isTouchIcon = false;

    friend bool operator==(const IconLink&, const IconLink&) = default;
};

} // namespace nookle
