#include "MozillaUrl.h"

namespace nookle {

QByteArray mozillaUrl(const QString& address, const QString& title)
{
    const QString lines(address + QLatin1Char('\n') + title);
    return QByteArray(reinterpret_cast<const char*>(lines.utf16()),
                      lines.size() * static_cast<qsizetype>(sizeof(char16_t)));
}

} // namespace nookle
