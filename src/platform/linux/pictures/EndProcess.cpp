#include "EndProcess.h"

#include <QCoreApplication>
#include <QProcess>
#include <QThread>

#include <utility>

namespace nookle {

namespace {

// A process that was killed ends at once, unless it hangs in the kernel.
inline constexpr int longestWait = 1000;

} // namespace

void endProcess(std::unique_ptr<QProcess> process)
{
    process->disconnect();
    if (process->state() == QProcess::NotRunning)
        return;
    process->kill();
    if (QThread::currentThread()->loopLevel() == 0 && process->waitForFinished(longestWait))
        return;
    QProcess* const ending = process.release();
    ending->setParent(QCoreApplication::instance());
    QObject::connect(ending, &QProcess::finished, ending, &QObject::deleteLater);
}

} // namespace nookle
