#include "FileUrl.h"
#include "InstructionCount.h"
#include "LinuxFileReferences.h"
#include "ProcessFigures.h"
#include "QtMainQueue.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <memory>

namespace nookle {

namespace {

void makeFile(const QString& path)
{
    if (!QFile(path).open(QIODevice::WriteOnly))
        qFatal("cannot make %s", qPrintable(path));
}

/// A home folder in memory, of folders with a thousand files each.
class Home {
public:
    static constexpr int filesInAFolder = 1000;

    explicit Home(int fileCount)
    {
        for (int number = 0; number < fileCount; ++number) {
            const QString folder = path(QStringLiteral("folder %1").arg(number / filesInAFolder));
            if (number % filesInAFolder == 0)
                QDir().mkpath(folder);
            makeFile(folder + QStringLiteral("/file %1").arg(number % filesInAFolder));
        }
    }

    [[nodiscard]] QString path(const QString& name) const { return m_folder.filePath(name); }

    /// What knows a file of this home after a restart, which follows none.
    [[nodiscard]] std::unique_ptr<LinuxFileReferences> references(MainQueue& queue) const
    {
        return std::make_unique<LinuxFileReferences>(QFile::encodeName(path(QStringLiteral("."))),
                                                     QFile::encodeName(path(QStringLiteral("data"))), queue);
    }

private:
    QTemporaryDir m_folder{ QStringLiteral("/dev/shm/nookle-bench-XXXXXX") };
};

/// A file at one of two places, and a reference that was made when it was at the first.
class WanderingFile {
public:
    WanderingFile(const Home& home, QString first, QString second, MainQueue& queue)
        : m_first(std::move(first))
        , m_second(std::move(second))
    {
        makeFile(m_first);
        bytes = home.references(queue)->make(fileUrl(QFile::encodeName(m_first))).value_or(QByteArray());
        QFile::rename(m_first, m_second);
    }

    QByteArray bytes;

private:
    QString m_first;
    QString m_second;
};

void findRenamedFile(benchmark::State& state)
{
    QtMainQueue queue;
    const Home home(0);
    const WanderingFile file(home, home.path(QStringLiteral("before")), home.path(QStringLiteral("after")), queue);
    // What came last into a folder in memory is listed first.
    for (int number = 0; number < state.range(0); ++number)
        makeFile(home.path(QString::number(number)));
    for (auto _ : state) {
        const auto references = home.references(queue);
        const InstructionCount count(state, "findRenamedFile");
        if (!references->resolve(file.bytes))
            state.SkipWithError("the file is not found");
    }
}

/// Beside the time until the file is found, the longest time for which the main thread did nothing else.
void findMovedFile(benchmark::State& state)
{
    QtMainQueue queue;
    const Home home(static_cast<int>(state.range(0)));
    // The folder that is looked into last.
    const QString last = home.path(QStringLiteral("folder %1/after").arg((state.range(0) - 1) / Home::filesInAFolder));
    const WanderingFile file(home, home.path(QStringLiteral("before")), last, queue);
    double longest = 0;
    for (auto _ : state) {
        const auto references = home.references(queue);
        bool isFound = false;
        references->onFilesFound = [&] { isFound = true; };
        auto start = bench::ownTime();
        static_cast<void>(references->resolve(file.bytes));
        while (!isFound) {
            QCoreApplication::processEvents();
            const auto end = bench::ownTime();
            longest = std::max(longest, std::chrono::duration<double, std::milli>(end - start).count());
            start = end;
        }
    }
    state.counters["longestTurn"] = longest;
}

BENCHMARK(findRenamedFile)->Arg(10'000)->Unit(benchmark::kMillisecond);
BENCHMARK(findMovedFile)->Arg(1'000'000)->Iterations(3)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace nookle
