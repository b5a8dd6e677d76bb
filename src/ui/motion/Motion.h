#pragma once

namespace nookle {

/// Whether the desktop wants things to move and to fade, and not to jump.
[[nodiscard]] bool wantsMotion();

} // namespace nookle
