#include "ChildProcess.h"

#include <QCoreApplication>
#include <QProcess>
#include <QThread>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/types.h>
#include <unistd.h>

#include <csignal>
#include <utility>

namespace nookle {

namespace {

// In milliseconds. A killed process ends at once, unless it hangs in the kernel.
inline constexpr int longestWait = 1000;

} // namespace

std::unique_ptr<QProcess> makeChildProcess(std::function<void()> prepare)
{
    auto process = std::make_unique<QProcess>();
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([prepare = std::move(prepare)] {
        ::setsid();
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        // A library may have opened a descriptor without close-on-exec.
        ::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC);
        prepare();
    });
    return process;
}

void passOn(int descriptor)
{
    ::fcntl(descriptor, F_SETFD, 0);
}

void endChildProcess(std::unique_ptr<QProcess> process)
{
    process->disconnect();
    if (process->state() == QProcess::NotRunning)
        return;
    // Kill the whole group: a sandbox that is killed during its set-up would leave a process behind.
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
