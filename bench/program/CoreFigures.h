#pragma once

#include <QString>

namespace nookle::bench {

class Report;

/// Runs the benchmarks of the core, `program`, and adds their figures; false, with a warning, when it does not run.
[[nodiscard]] bool addCore(const QString& program, Report& report);

} // namespace nookle::bench
