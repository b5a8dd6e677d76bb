#include "ProcessFigures.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QStringList>

namespace nookle::bench {

namespace {

[[nodiscard]] QByteArray content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The number that follows `name` in a file with a name and a number on each line.
[[nodiscard]] qint64 numberOf(const QByteArray& text, const QByteArray& name)
{
    for (const QByteArray& line : text.split('\n')) {
        if (line.startsWith(name))
            return line.sliced(name.size()).trimmed().split(' ').constFirst().toLongLong();
    }
    return 0;
}

[[nodiscard]] QStringList threads(qint64 processId)
{
    const QString folder = QStringLiteral("/proc/%1/task").arg(processId);
    QStringList paths;
    for (const QString& name : QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        paths.append(QString(folder + u'/' + name));
    return paths;
}

} // namespace

qint64 proportionalMemory(qint64 processId)
{
    constexpr qint64 kibibyte = 1024;
    return numberOf(content(QStringLiteral("/proc/%1/smaps_rollup").arg(processId)), "Pss:") * kibibyte;
}

qint64 ownMemory(qint64 processId)
{
    constexpr qint64 kibibyte = 1024;
    return numberOf(content(QStringLiteral("/proc/%1/smaps_rollup").arg(processId)), "Private_Dirty:") * kibibyte;
}

WakeUps wakeUps(qint64 processId)
{
    WakeUps counts;
    for (const QString& thread : threads(processId))
        counts.insert(thread, numberOf(content(thread + QStringLiteral("/status")), "voluntary_ctxt_switches:"));
    return counts;
}

qint64 countSince(const WakeUps& before, const WakeUps& after)
{
    qint64 count = 0;
    for (auto thread = after.cbegin(); thread != after.cend(); ++thread)
        count += thread.value() - before.value(thread.key());
    return count;
}

std::chrono::nanoseconds processorTime(qint64 processId)
{
    std::chrono::nanoseconds time{};
    for (const QString& thread : threads(processId)) {
        const QByteArray statistics = content(thread + QStringLiteral("/schedstat"));
        time += std::chrono::nanoseconds(statistics.split(' ').constFirst().toLongLong());
    }
    return time;
}

std::chrono::nanoseconds ownTime()
{
    const QList<QByteArray> statistics = content(QStringLiteral("/proc/thread-self/schedstat")).split(' ');
    const std::chrono::nanoseconds waiting(statistics.value(1).toLongLong());
    return std::chrono::steady_clock::now().time_since_epoch() - waiting;
}

} // namespace nookle::bench
