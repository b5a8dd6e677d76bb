#include "WaylandDropPayload.h"

#include "ChildReader.h"

#include <QMimeData>

#include <utility>

namespace nookle {

namespace {

/// The toolkit lists this format as a list of addresses, which has no title. It delivers it all the same, and nothing
/// if the source does not have it.
inline constexpr const char* linkWithTitle = "text/x-moz-url";

} // namespace

WaylandDropPayload::WaylandDropPayload(const QMimeData& data, std::function<bool()> flush, const Limits& limits)
    : m_data(data)
    , m_flush(std::move(flush))
    , m_limits(limits)
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
    if (Clock::now() >= m_limits.deadline || !m_flush())
        return {};
    return ChildReader::run([&] { return m_data.data(format); }, m_limits.size, m_limits.deadline)
        .value_or(QByteArray());
}

SaveAnswer WaylandDropPayload::save(const QByteArray& /*path*/) const
{
    return SaveAnswer::refused;
}

} // namespace nookle
