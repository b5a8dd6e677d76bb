#include "WaylandDropPayload.h"

#include <QElapsedTimer>
#include <QMimeData>

namespace nookle {

namespace {

inline constexpr qint64 mostMilliseconds = 900;

} // namespace

WaylandDropPayload::WaylandDropPayload(const QMimeData& data)
    : m_data(data)
{
}

QStringList WaylandDropPayload::formats() const
{
    return m_data.formats();
}

QByteArray WaylandDropPayload::data(const QString& format) const
{
    if (m_spentMilliseconds >= mostMilliseconds)
        return {};
    QElapsedTimer elapsed;
    elapsed.start();
    QByteArray bytes = m_data.data(format);
    m_spentMilliseconds += elapsed.elapsed();
    return bytes;
}

SaveAnswer WaylandDropPayload::save(const QByteArray& /*path*/) const
{
    return SaveAnswer::refused;
}

} // namespace nookle
