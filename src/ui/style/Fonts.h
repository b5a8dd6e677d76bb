#pragma once

#include <QFont>

namespace nookle {

/// The desktop's font for small print.
[[nodiscard]] QFont captionFont();

/// A slightly smaller font than `captionFont`.
[[nodiscard]] QFont smallerCaptionFont();

} // namespace nookle
