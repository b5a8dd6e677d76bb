#include "Statistics.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace nookle::bench {

double quantile(std::vector<double> values, double share)
{
    const auto place = values.begin() + std::lround(share * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), place, values.end());
    return *place;
}

double median(std::vector<double> values)
{
    return quantile(std::move(values), 0.5);
}

} // namespace nookle::bench
