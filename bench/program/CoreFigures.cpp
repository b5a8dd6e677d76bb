#include "CoreFigures.h"

#include "Report.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace nookle::bench {

namespace {

using Times = QHash<QString, double>;

[[nodiscard]] Times readTimes(const QByteArray& output)
{
    Times times;
    const QJsonArray benchmarks = QJsonDocument::fromJson(output).object().value(QLatin1String("benchmarks")).toArray();
    for (const auto& each : benchmarks) {
        const QJsonObject benchmark = each.toObject();
        const QString name = benchmark.value(QLatin1String("name")).toString();
        times.insert(name, benchmark.value(QLatin1String("real_time")).toDouble());
        const QJsonValue longestTurn = benchmark.value(QLatin1String("longestTurn"));
        if (longestTurn.isDouble())
            times.insert(QString(name + QStringLiteral("/longestTurn")), longestTurn.toDouble());
    }
    return times;
}

struct CoreFigure {
    const char* name;
    const char* benchmark;
    double budget;
};

// In milliseconds, as the benchmarks give them.
inline constexpr CoreFigure coreFigures[] = {
    { "adding 10,000 files to 10,000", "addFiles/10000/10000", 300 },
    { "adding 10,000 files to 100,000", "addFiles/100000/10000", 10 * 300 },
    { "adding 100,000 files", "addFiles/0/100000", 10 * 300 },
    { "saving 10,000 items", "saveStore/10000", 100 },
    { "saving 100,000 items", "saveStore/100000", 3000 },
    { "loading 10,000 items", "decodeIndex/10000", 100 },
    { "loading 100,000 items", "decodeIndex/100000", 3000 },
    { "bringing 10,000 items back", "undoRemove/10000", 300 },
    { "looking at 10,000 files in place", "refreshFiles/10000", 60 },
    { "finding a renamed file in a folder of 10,000", "findRenamedFile/10000", 20 },
    { "finding a moved file in a tree of 1,000,000", "findMovedFile/1000000/iterations:3", 2000 },
    { "the longest turn of the main thread meanwhile", "findMovedFile/1000000/iterations:3/longestTurn", 5 },
};

} // namespace

bool addCore(const QString& program, Report& report)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, { QStringLiteral("--benchmark_format=json") });
    if (!process.waitForFinished(-1) || process.exitCode() != 0) {
        qWarning("%s fails", qPrintable(program));
        return false;
    }
    const Times times = readTimes(process.readAllStandardOutput());
    for (const CoreFigure& figure : coreFigures) {
        const auto time = times.constFind(QLatin1String(figure.benchmark));
        if (time == times.constEnd()) {
            qWarning("%s does not measure %s", qPrintable(program), figure.benchmark);
            return false;
        }
        report.addTime(QLatin1String(figure.name), *time, figure.budget);
    }
    return true;
}

} // namespace nookle::bench
