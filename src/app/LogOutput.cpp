#include "LogOutput.h"

#include <QString>
#include <QtGlobal>

#include <cstdio>

namespace nookle {

namespace {

void writeLine(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    if (type == QtDebugMsg)
        return;
    const QByteArray line = message.toUtf8() + '\n';
    std::fwrite(line.constData(), 1, static_cast<std::size_t>(line.size()), stderr);
    std::fflush(stderr);
}

} // namespace

void sendLogToStandardError()
{
    qInstallMessageHandler(writeLine);
}

} // namespace nookle
