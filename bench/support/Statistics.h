#pragma once

#include <vector>

namespace nookle::bench {

/// The value that this share of all, from 0 to 1, does not exceed. There must be one value at least.
[[nodiscard]] double quantile(std::vector<double> values, double share);

/// The value in the middle.
[[nodiscard]] double median(std::vector<double> values);

} // namespace nookle::bench
