#pragma once

#include "PrivateDesktop.h"

#include <memory>

namespace nookle::bench {

/// A private desktop without a window manager, which would be measured too. Null, with a warning, when it does not run.
[[nodiscard]] std::unique_ptr<e2e::PrivateDesktop> makeDesktop();

/// Fills the shelf of that desktop, as `writeSampleShelf`.
[[nodiscard]] bool writeShelf(const e2e::PrivateDesktop& desktop, int count);

} // namespace nookle::bench
