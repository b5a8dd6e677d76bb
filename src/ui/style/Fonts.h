#pragma once

#include <QFont>

namespace nookle {

/// The desktop's font for small print.
[[nodiscard]] QFont captionFont();

/// One size below that.
[[nodiscard]] QFont smallerCaptionFont();

} // namespace nookle
