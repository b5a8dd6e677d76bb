#pragma once

#include <QString>

namespace nookle {

/// A `link` element of a page that names an icon, with the page's own values.
struct IconLink {
    QString href;
    /// The declared sizes in pixels, such as "16x16 32x32" or "any".
    QString sizes;
    QString type;
    QString media;
    bool isTouchIcon = false;

    friend bool operator==(const IconLink&, const IconLink&) = default;
};

} // namespace nookle
