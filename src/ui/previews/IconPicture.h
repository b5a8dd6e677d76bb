#pragma once

class QIcon;
class QPixmap;

namespace nookle {

/// The icon as a picture of `side` pixels, made of a source that has at least as many, if the icon theme has one.
[[nodiscard]] QPixmap iconPicture(const QIcon& icon, double side);

} // namespace nookle
