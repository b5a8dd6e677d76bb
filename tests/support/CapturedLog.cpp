#include "CapturedLog.h"

#include <QtGlobal>

namespace nookle {

namespace {

QStringList capturedLines;
QtMessageHandler previousHandler = nullptr;

void capture(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& message)
{
    capturedLines.append(message);
}

} // namespace

CapturedLog::CapturedLog()
{
    capturedLines.clear();
    previousHandler = qInstallMessageHandler(capture);
}

CapturedLog::~CapturedLog()
{
    qInstallMessageHandler(previousHandler);
}

const QStringList& CapturedLog::lines() const
{
    return capturedLines;
}

} // namespace nookle
