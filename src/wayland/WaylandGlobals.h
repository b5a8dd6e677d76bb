#pragma once

#include <QByteArrayList>

namespace nookle {

/// The names of the interfaces that the session's compositor offers, asked once, on a connection of its own. Empty when
/// there is no compositor.
[[nodiscard]] QByteArrayList waylandInterfaces();

} // namespace nookle
