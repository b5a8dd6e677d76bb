#pragma once

#include <QString>

#include <functional>
#include <optional>

namespace nookle::bench {

class Report;

/// The time of one start in milliseconds; none when it fails.
using TimedStart = std::function<std::optional<double>()>;

/// Starts the floor and Nookle in turn, many times, and adds the ratio of their usual times. False when one start
/// fails.
[[nodiscard]] bool compareStarts(Report& report, const QString& name, const TimedStart& floor, const TimedStart& nookle,
                                 double budget);

} // namespace nookle::bench
