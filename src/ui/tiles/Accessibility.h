#pragma once

namespace nookle {

/// Presents the shelf to assistive programs as a list of items with their actions. Call it once, before the first view
/// is made.
void installAccessibility();

} // namespace nookle
