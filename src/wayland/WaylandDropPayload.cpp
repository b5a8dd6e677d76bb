#include "WaylandDropPayload.h"

#include "ChildReader.h"

#include <QMimeData>

#include <utility>

namespace nookle {

namespace {

/// The toolkit lists this format as a list of addresses, which has no title. It delivers it all the same, and nothing
/// if the source does not have it.
inline constexpr const char* linkWithTitle = "text/x-moz-url";

inline constexpr const char* addressList = "text/uri-list";

[[nodiscard]] bool isOneFile(const QByteArray& list)
{
    const QByteArray address = list.trimmed();
    return address.toLower().startsWith("file:") && !address.contains('\n');
}

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
    if (formats.contains(QLatin1String(addressList)) && !formats.contains(QLatin1String(linkWithTitle)))
        formats.append(QLatin1String(linkWithTitle));
    return formats;
}

QByteArray WaylandDropPayload::data(const QString& format) const
{
    const QByteArray bytes = delivered(format);
    // The toolkit makes such a list of what a browser says of a link, where a page's script may have chosen the file.
    if (format == QLatin1String(addressList) && isOneFile(bytes) && !delivered(QLatin1String(linkWithTitle)).isEmpty())
        return {};
    return bytes;
}

QByteArray WaylandDropPayload::delivered(const QString& format) const
{
    if (const auto known = m_delivered.constFind(format); known != m_delivered.constEnd())
        return *known;
    if (Clock::now() >= m_limits.deadline || !m_flush())
        return {};
    // There is nothing left to send, but the child passes the lock of the connection, which a thread of the toolkit
    // holds now and then.
    const ChildReader::Work work{ [&] { static_cast<void>(m_flush()); }, [&] { return m_data.data(format); } };
    const auto bytes = ChildReader::run(work, m_limits.size, m_limits.deadline);
    return *m_delivered.insert(format, bytes.value_or(QByteArray()));
}

SaveAnswer WaylandDropPayload::save(const QByteArray& /*path*/) const
{
    return SaveAnswer::refused;
}

} // namespace nookle
