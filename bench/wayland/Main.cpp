// Measures the whole program under sway, prints a table, and writes the same as JSON. Ends with 1 when a budget is
// missed, and with 2 when something could not be measured.
//   nookle_bench_sway FOLDER-OF-THE-PROGRAMS JSON-FILE

#include "Report.h"
#include "SwayFigures.h"

#include <QCoreApplication>
#include <QFile>

#include <cstdio>

using namespace nookle::bench;

namespace {

[[nodiscard]] bool measure(const QString& folder, Report& report)
{
    qputenv("NOOKLE_PROGRAM", QFile::encodeName(folder + QStringLiteral("/nookle")));
    SwayFigures figures(report, folder + QStringLiteral("/nookle_bench_floor"));
    return figures.addStart() && figures.addIdling() && figures.addPictures();
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: nookle_bench_sway FOLDER-OF-THE-PROGRAMS JSON-FILE\n", stderr);
        return cannotMeasure;
    }
    Report report;
    const bool isMeasured = measure(arguments[1], report);
    return publish(report, isMeasured, arguments[2]);
}
