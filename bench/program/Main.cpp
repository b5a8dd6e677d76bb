// Measures the whole program and its core, prints one table, and writes the same as JSON. Ends with 1 when a budget is
// missed, and with 2 when something could not be measured.
//   nookle_bench FOLDER-OF-THE-PROGRAMS JSON-FILE

#include "CoreFigures.h"
#include "DragFigures.h"
#include "ProgramFigures.h"
#include "Report.h"

#include <QCoreApplication>

#include <cstdio>

using namespace nookle::bench;

namespace {

[[nodiscard]] bool measure(const QString& folder, Report& report)
{
    const auto program = [&](const char* name) { return QString(folder + u'/' + QLatin1String(name)); };
    const Programs programs{ program("nookle"), program("nookle_bench_floor"), program("nookle_bench_panel"),
                             program("Peer") };
    return addStart(programs, report) && addIdling(programs, report) && addDragging(programs, report)
        && addDrop(programs, report) && addDragOut(programs, report) && addPanel(programs, report)
        && addCore(program("nookle_bench_core"), report) && addSize(programs, report);
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: nookle_bench FOLDER-OF-THE-PROGRAMS JSON-FILE\n", stderr);
        return cannotMeasure;
    }
    Report report;
    const bool isMeasured = measure(arguments[1], report);
    return publish(report, isMeasured, arguments[2]);
}
