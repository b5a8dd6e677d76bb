#pragma once

namespace nookle::bench {

class Report;
struct Programs;

/// Drags a thousand items out of the shelf, again and again, and adds the figures; false, with a warning, when no drag
/// begins.
[[nodiscard]] bool addDragOut(const Programs& programs, Report& report);

} // namespace nookle::bench
