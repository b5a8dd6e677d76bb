#include "HelperProcess.h"

#include <QCoreApplication>
#include <QProcess>
#include <QThread>

#include <sys/prctl.h>
#include <sys/types.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace nookle {

namespace {

// A process that was killed ends at once, unless it hangs in the kernel.
inline constexpr int longestWait = 1000;

} // namespace

std::unique_ptr<QProcess> makeHelperProcess(std::function<void()> prepare)
{
    auto process = std::make_unique<QProcess>();
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([prepare = std::move(prepare)] {
        ::setsid();
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        prepare();
    });
    return process;
}

void endHelperProcess(std::unique_ptr<QProcess> process)
{
    process->disconnect();
    if (process->state() == QProcess::NotRunning)
        return;
    // The group as well: a sandbox that is killed while it is being set up leaves a part of itself behind.
    if (const auto group = static_cast<pid_t>(process->processId()); group > 0)
        ::kill(-group, SIGKILL);
    process->kill();
    if (QThread::currentThread()->loopLevel() == 0 && process->waitForFinished(longestWait))
        return;
    QProcess* const ending = process.release();
    ending->setParent(QCoreApplication::instance());
    QObject::connect(ending, &QProcess::finished, ending, &QObject::deleteLater);
}

} // namespace nookle
