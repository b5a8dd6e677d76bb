#include "X11Drops.h"

#include "FileUrl.h"
#include "X11SelectionReader.h"
#include "XcbReply.h"

#include <QCoreApplication>

#include <xcb/xcb.h>

#include <chrono>

namespace nookle {

namespace {

inline constexpr const char* dragEnter = "XdndEnter";
inline constexpr const char* dragPosition = "XdndPosition";
inline constexpr const char* dragDrop = "XdndDrop";
inline constexpr const char* dragSelection = "XdndSelection";
inline constexpr const char* typeList = "XdndTypeList";
inline constexpr const char* directSave = "XdndDirectSave0";
inline constexpr const char* plainText = "text/plain";

inline constexpr std::chrono::milliseconds patience{ 900 };
inline constexpr qsizetype largestPayload = qsizetype{ 256 } * 1024 * 1024;

} // namespace

class X11Drops::Payload final : public DropPayload {
public:
    explicit Payload(X11Drops& drops)
        : m_drops(drops)
        , m_deadline(X11SelectionReader::Clock::now() + patience)
    {
    }

    [[nodiscard]] QStringList formats() const override { return m_drops.formats(); }
    [[nodiscard]] QByteArray suggestedName() const override { return m_drops.suggestedName(); }

    [[nodiscard]] bool canSave() const override { return formats().contains(QLatin1String(directSave)); }

    [[nodiscard]] SaveAnswer save(const QByteArray& path) const override
    {
        m_drops.suggestPlace(fileUrl(path).toEncoded());
        if (data(QLatin1String(directSave)) == "S")
            return SaveAnswer::saved;
        return X11SelectionReader::Clock::now() < m_deadline ? SaveAnswer::refused : SaveAnswer::none;
    }

    [[nodiscard]] QByteArray data(const QString& format) const override
    {
        X11SelectionReader* reader = m_drops.reader();
        if (!reader)
            return {};
        const std::uint32_t target = xcbAtom(m_drops.m_connection, format.toLatin1());
        return reader->read(m_drops.m_atoms[dragSelection], target, m_drops.m_time, largestPayload, m_deadline)
            .value_or(QByteArray());
    }

private:
    X11Drops& m_drops;
    X11SelectionReader::Clock::time_point m_deadline;
};

X11Drops::X11Drops(xcb_connection_t* connection)
    : m_connection(connection)
    , m_atoms(connection, { dragEnter, dragPosition, dragDrop, dragSelection, typeList, directSave, plainText })
{
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11Drops::~X11Drops()
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

std::unique_ptr<DropPayload> X11Drops::payload()
{
    return std::make_unique<Payload>(*this);
}

// The toolkit does not provide the source window of a drag and the timestamp of the drop.
bool X11Drops::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const xcb_client_message_event_t*>(message);
    if ((event->response_type & 0x7f) != XCB_CLIENT_MESSAGE)
        return false;
    constexpr int timeOfPosition = 3;
    constexpr int timeOfDrop = 2;
    if (event->type == m_atoms[dragEnter])
        enter(*event);
    else if (event->type == m_atoms[dragPosition])
        m_time = event->data.data32[timeOfPosition];
    else if (event->type == m_atoms[dragDrop])
        m_time = event->data.data32[timeOfDrop];
    return false;
}

void X11Drops::enter(const xcb_client_message_event_t& event)
{
    constexpr std::uint32_t hasMoreThanThree = 1;
    m_source = event.data.data32[0];
    m_hasMore = event.data.data32[1] & hasMoreThanThree;
    m_announced.clear();
    m_formats.clear();
    for (const int index : { 2, 3, 4 }) {
        if (const std::uint32_t atom = event.data.data32[index]; atom != XCB_ATOM_NONE)
            m_announced.push_back(atom);
    }
}

const QStringList& X11Drops::formats()
{
    if (m_formats.isEmpty())
        m_formats =
            xcbAtomNames(m_connection, m_hasMore ? xcbNumbers(m_connection, m_source, m_atoms[typeList]) : m_announced);
    return m_formats;
}

QByteArray X11Drops::suggestedName() const
{
    constexpr std::uint32_t longestName = 1024;
    const auto cookie = xcb_get_property(m_connection, 0, m_source, m_atoms[directSave], XCB_ATOM_ANY, 0, longestName);
    const auto reply = owned(xcb_get_property_reply(m_connection, cookie, nullptr));
    if (!reply)
        return {};
    return { static_cast<const char*>(xcb_get_property_value(reply.get())),
             xcb_get_property_value_length(reply.get()) };
}

void X11Drops::suggestPlace(const QByteArray& address)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_source, m_atoms[directSave], m_atoms[plainText], 8,
                        static_cast<std::uint32_t>(address.size()), address.constData());
    // Waits until the server has set the property: the request for the file goes over another connection.
    const auto cookie = xcb_get_input_focus(m_connection);
    [[maybe_unused]] const auto reply = owned(xcb_get_input_focus_reply(m_connection, cookie, nullptr));
}

X11SelectionReader* X11Drops::reader()
{
    if (!m_reader)
        m_reader = X11SelectionReader::tryCreate();
    return m_reader.get();
}

} // namespace nookle
