#include "StartComparison.h"

#include "Report.h"
#include "Statistics.h"

#include <vector>

namespace nookle::bench {

bool compareStarts(Report& report, const QString& name, const TimedStart& floor, const TimedStart& nookle,
                   double budget)
{
    constexpr int runs = 21;
    std::vector<double> floors;
    std::vector<double> times;
    // Not the first run of each, which reads from the disk.
    for (int run = 0; run <= runs; ++run) {
        const auto timeOfFloor = floor();
        const auto time = nookle();
        if (!timeOfFloor || !time)
            return false;
        if (run == 0)
            continue;
        floors.push_back(*timeOfFloor);
        times.push_back(*time);
    }
    report.addRatio(name, median(times), QStringLiteral("ms"), median(floors), budget);
    return true;
}

} // namespace nookle::bench
