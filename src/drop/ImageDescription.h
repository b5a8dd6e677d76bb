#pragma once

#include <QString>

namespace nookle {

class DropPayload;

/// What the source says about its image besides a file name: the alternative text in the page, or else the title that
/// comes with the address. One line of at most 80 characters; empty when there is neither.
[[nodiscard]] QString loadImageDescription(const DropPayload& payload);

} // namespace nookle
