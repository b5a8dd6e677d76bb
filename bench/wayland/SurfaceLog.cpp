#include "SurfaceLog.h"

namespace nookle::bench {

bool hasPlace(const QByteArray& log, int width)
{
    return log.contains(QByteArray::number(width).prepend(".set_size(").append(','));
}

bool hasPicture(const QByteArray& log)
{
    return log.contains(".attach(wl_buffer");
}

qsizetype commits(const QByteArray& log)
{
    return log.count(".commit()");
}

} // namespace nookle::bench
