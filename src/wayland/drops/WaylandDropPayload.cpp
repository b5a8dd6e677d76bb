#include "WaylandDropPayload.h"

#include "ChildReader.h"

#include <QMimeData>

#include <algorithm>
#include <optional>
#include <utility>

namespace nookle {

namespace {

/// The toolkit lists this format as a list of addresses, which has no title. It delivers it all the same, and nothing
/// if the source does not have it.
inline constexpr const char* linkWithTitle = "text/x-moz-url";

inline constexpr const char* addressList = "text/uri-list";
inline constexpr const char* plainText = "text/plain";
/// The toolkit lists it as plain text, and delivers it all the same. Programs of GTK 4 also offer plain text, without
/// the letters that ASCII lacks.
inline constexpr const char* plainTextInUtf8 = "text/plain;charset=utf-8";

[[nodiscard]] bool isOneFile(const QByteArray& list)
{
    const QByteArray address = list.trimmed();
    return address.toLower().startsWith("file:") && !address.contains('\n');
}

} // namespace

WaylandDropPayload::WaylandDropPayload(const QMimeData& data, Connection connection, Source source,
                                       const Limits& limits)
    : m_data(data)
    , m_connection(std::move(connection))
    , m_source(source)
    , m_limits(limits)
{
}

WaylandDropPayload::~WaylandDropPayload() = default;

QStringList WaylandDropPayload::formats() const
{
    QStringList formats = m_data.formats();
    // Programs made with the toolkit offer it on X11 for every file, so there it says nothing of a page.
    if (m_source == Source::waylandProgram && formats.contains(QLatin1String(addressList))
        && !formats.contains(QLatin1String(linkWithTitle)))
        formats.append(QLatin1String(linkWithTitle));
    if (m_source == Source::waylandProgram && formats.contains(QLatin1String(plainText))
        && !formats.contains(QLatin1String(plainTextInUtf8)))
        formats.append(QLatin1String(plainTextInUtf8));
    return formats;
}

QByteArray WaylandDropPayload::data(const QString& format) const
{
    const QByteArray bytes = delivered(format);
    // Such a list may be made of what a browser says of a link, where a page's script may have chosen the file.
    if (format == QLatin1String(addressList) && isOneFile(bytes) && isOfPage())
        return {};
    return bytes;
}

bool WaylandDropPayload::isOfPage() const
{
    if (m_source == Source::waylandProgram)
        return !delivered(QLatin1String(linkWithTitle)).isEmpty();
    const QStringList formats = m_data.formats();
    return std::any_of(formats.begin(), formats.end(),
                       [](const QString& format) { return format.startsWith(QLatin1String(linkWithTitle)); });
}

void WaylandDropPayload::expect(const QStringList& formats) const
{
    if (m_source == Source::waylandProgram)
        return;
    m_bridged = std::make_unique<BridgedDrop>(
        [this](const QString& format) { return canAsk() ? std::optional(workFor(format)) : std::nullopt; },
        m_connection.socket, BridgedDrop::Limits{ m_limits.deadline, m_limits.size });
    m_bridged->ask(formats);
}

QByteArray WaylandDropPayload::delivered(const QString& format) const
{
    if (const auto known = m_delivered.constFind(format); known != m_delivered.constEnd())
        return *known;
    // What was asked for in time may have come by now.
    if (m_source == Source::x11Program ? !m_bridged : !canAsk())
        return {};
    return *m_delivered.insert(format, read(format));
}

QByteArray WaylandDropPayload::read(const QString& format) const
{
    if (m_bridged)
        return m_bridged->answer(format);
    return ChildReader::run(workFor(format), m_limits.size, m_limits.deadline).value_or(QByteArray());
}

bool WaylandDropPayload::canAsk() const
{
    if (Clock::now() >= m_limits.deadline)
        return false;
    if (m_connection.flush())
        return true;
    const bool canWait = m_connection.socket >= 0;
    return canWait && waitToWrite(m_connection.socket, m_limits.deadline) && m_connection.flush();
}

ReadingChild::Work WaylandDropPayload::workFor(const QString& format) const
{
    // There is nothing left to send, but the child passes the lock of the connection, which a thread of the toolkit
    // holds now and then.
    return { [this] { static_cast<void>(m_connection.flush()); }, [this, format] { return m_data.data(format); } };
}

SaveAnswer WaylandDropPayload::save(const QByteArray& /*path*/) const
{
    return SaveAnswer::refused;
}

} // namespace nookle
