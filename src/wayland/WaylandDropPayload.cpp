#include "WaylandDropPayload.h"

#include <QElapsedTimer>
#include <QMimeData>

namespace nookle {

namespace {

inline constexpr qint64 mostMilliseconds = 900;
/// The toolkit lists this format as a list of addresses, which has no title. It delivers it all the same, and nothing
/// if the source does not have it.
inline constexpr const char* linkWithTitle = "text/x-moz-url";

} // namespace

WaylandDropPayload::WaylandDropPayload(const QMimeData& data)
    : m_data(data)
{
}

QStringList WaylandDropPayload::formats() const
{
    QStringList formats = m_data.formats();
    if (formats.contains(QLatin1String("text/uri-list")) && !formats.contains(QLatin1String(linkWithTitle)))
        formats.append(QLatin1String(linkWithTitle));
    return formats;
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
