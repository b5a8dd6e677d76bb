#include "ProgramVersion.h"

namespace nookle {

QString programVersion()
{
    return QStringLiteral(NOOKLE_VERSION);
}

} // namespace nookle
