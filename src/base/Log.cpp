#include "Log.h"

#include <QLoggingCategory>

namespace nookle {

namespace {

Q_LOGGING_CATEGORY(nookleLog, "nookle")

[[nodiscard]] QString onOneLine(const QString& message)
{
    QString line;
    line.reserve(message.size());
    for (const QChar character : message) {
        const ushort code = character.unicode();
        const bool breaksLine = code < 0x20 || (code >= 0x7f && code < 0xa0) || code == 0x2028 || code == 0x2029;
        if (breaksLine)
            line += QStringLiteral("\\x%1").arg(code, 2, 16, QLatin1Char('0'));
        else
            line += character;
    }
    return line;
}

} // namespace

void logLine(const QString& message)
{
    qCWarning(nookleLog).noquote() << QString(QStringLiteral("Nookle: ") + onOneLine(message));
}

} // namespace nookle
