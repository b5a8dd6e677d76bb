#include "Program.h"

#include "Waiting.h"

#include <csignal>

#include <sys/prctl.h>

namespace nookle::e2e {

Program::Program(const QString& path, const QStringList& arguments, const QProcessEnvironment& environment)
{
    m_process.setProcessEnvironment(environment);
    m_process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    m_process.start(path, arguments);
    if (!m_process.waitForStarted())
        qWarning("%s does not start: %s", qPrintable(path), qPrintable(m_process.errorString()));
}

Program::~Program()
{
    if (!isRunning())
        return;
    if (!terminate())
        kill();
}

QByteArray Program::readLine()
{
    if (!waitFor([this] { return m_process.canReadLine() || m_process.waitForReadyRead(1); }))
        return {};
    return m_process.readLine().trimmed();
}

bool Program::terminate()
{
    m_process.terminate();
    return m_process.waitForFinished(patience);
}

void Program::kill()
{
    m_process.kill();
    m_process.waitForFinished(patience);
}

int Program::waitForExit()
{
    if (isRunning() && !m_process.waitForFinished(patience))
        return -1;
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

QByteArray Program::log()
{
    m_log += m_process.readAllStandardError();
    return m_log;
}

QByteArray Program::output()
{
    m_output += m_process.readAllStandardOutput();
    return m_output;
}

} // namespace nookle::e2e
