#include "X11ForeignDrags.h"

#include "XcbAtoms.h"
#include "XcbClients.h"
#include "XcbReply.h"
#include "XcbRoot.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTimer>

#include <xcb/xcb.h>
#include <xcb/xcbext.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <chrono>
#include <optional>
#include <utility>

#include <unistd.h>

namespace nookle {

namespace {

/// A server that ends has gone by then.
inline constexpr std::chrono::seconds timeToEnd{ 2 };
inline constexpr const char* dragSelection = "XdndSelection";

/// A user begins no two drags within that time.
inline constexpr std::chrono::milliseconds timeBetweenChanges{ 50 };

/// Whether the session's X server runs. A connection to it would start it.
[[nodiscard]] bool isServerRunning()
{
    const QStringList entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::any_of(entries.begin(), entries.end(), [](const QString& entry) {
        bool isProcess = false;
        entry.toUInt(&isProcess);
        QFile name(QStringLiteral("/proc/%1/comm").arg(entry));
        return isProcess && QFileInfo(name).ownerId() == ::getuid() && name.open(QIODevice::ReadOnly)
            && name.readAll().trimmed() == "Xwayland";
    });
}

} // namespace

X11ForeignDrags::X11ForeignDrags(std::chrono::milliseconds timeBetweenLooks)
    : m_timeBetweenLooks(timeBetweenLooks)
{
}

X11ForeignDrags::~X11ForeignDrags() = default;

bool X11ForeignDrags::watch()
{
    if (m_connection)
        return true;
    return m_nextLook.hasExpired() && connectToServer();
}

// The compositor offers the drag of a Wayland program to the server, too, so that its owner there is the drag's in any
// case. It does not count as told of: the strips stay as they are until the next one.
void X11ForeignDrags::dragCame()
{
    if (m_connection || !m_serverEnd.hasExpired() || !connectToServer())
        return;
    const auto cookie = xcb_get_selection_owner(m_connection.get(), xcbAtom(m_connection.get(), dragSelection));
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection.get(), cookie, nullptr));
    if (reply)
        setOwner(reply->owner);
}

bool X11ForeignDrags::connectToServer()
{
    if (!isServerRunning()) {
        m_nextLook.setRemainingTime(m_timeBetweenLooks);
        return false;
    }
    m_connection.reset(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(m_connection.get()) != 0 || !watchSelection()) {
        m_connection.reset();
        m_nextLook.setRemainingTime(m_timeBetweenLooks);
        return false;
    }
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &X11ForeignDrags::readEvents);
    // Events that came with the replies are in the connection's queue, and its socket does not signal them again.
    QMetaObject::invokeMethod(this, &X11ForeignDrags::readEvents, Qt::QueuedConnection);
    return true;
}

bool X11ForeignDrags::watchSelection()
{
    const auto* extension = xcb_get_extension_data(m_connection.get(), &xcb_xfixes_id);
    if (!extension || extension->present == 0)
        return false;
    m_firstFixesEvent = extension->first_event;
    const auto cookie =
        xcb_xfixes_query_version(m_connection.get(), XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION);
    const auto version = owned(xcb_xfixes_query_version_reply(m_connection.get(), cookie, nullptr));
    const std::uint32_t selection = xcbAtom(m_connection.get(), dragSelection);
    m_managerAtom = xcbAtom(m_connection.get(), "_NET_SUPPORTING_WM_CHECK");
    if (!version || selection == XCB_ATOM_NONE)
        return false;
    letServerEnd(version->major_version);
    const auto root = rootOf(m_connection.get());
    xcb_xfixes_select_selection_input(m_connection.get(), root, selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY
                                          | XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
    askForManager();
    return true;
}

// Some sessions end the server when its last program has gone, and this connection is not to keep it.
void X11ForeignDrags::letServerEnd(std::uint32_t fixesVersion)
{
    constexpr std::uint32_t firstWithModes = 6;
    if (fixesVersion >= firstWithModes)
        xcb_xfixes_set_client_disconnect_mode(m_connection.get(), XCB_XFIXES_CLIENT_DISCONNECT_FLAGS_TERMINATE);
}

void X11ForeignDrags::readEvents()
{
    if (!m_connection)
        return;
    std::optional<xcb_window_t> owner;
    xcb_window_t source = XCB_WINDOW_NONE;
    while (const auto event = owned(xcb_poll_for_event(m_connection.get()))) {
        if ((event->response_type & 0x7f) != m_firstFixesEvent + XCB_XFIXES_SELECTION_NOTIFY)
            continue;
        owner = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(*event).owner;
        // Some programs give the selection up before their drop is read.
        if (*owner != XCB_WINDOW_NONE)
            source = *owner;
    }
    if (source != XCB_WINDOW_NONE)
        setOwner(source);
    if (owner) {
        pauseReading();
        setUnderWay(*owner != XCB_WINDOW_NONE);
    }
    takeManager();
    if (xcb_connection_has_error(m_connection.get()) == 0)
        return;
    // The server has ended. A connection while its process is still there would start another one.
    m_notifier.reset();
    m_connection.reset();
    m_nextLook.setRemainingTime(m_timeBetweenLooks);
    m_serverEnd.setRemainingTime(timeToEnd);
    m_manager = XCB_WINDOW_NONE;
    m_question.reset();
    m_owner = XCB_WINDOW_NONE;
    m_isUnderWay = false;
    m_isOfX11Program = false;
    if (onChanged)
        onChanged();
}

// A program that takes and gives up the selection without end would have as many windows made and thrown away.
void X11ForeignDrags::pauseReading()
{
    m_notifier->setEnabled(false);
    QTimer::singleShot(timeBetweenChanges, m_notifier.get(), [this] {
        m_notifier->setEnabled(true);
        readEvents();
    });
}

void X11ForeignDrags::setOwner(std::uint32_t owner)
{
    m_owner = owner;
    if (m_manager == XCB_WINDOW_NONE && !m_question)
        askForManager();
    judgeOwner();
}

// The compositor is the window manager, too, and offers the drags of Wayland programs.
void X11ForeignDrags::judgeOwner()
{
    m_isOfX11Program = m_owner != XCB_WINDOW_NONE && m_manager != XCB_WINDOW_NONE
        && !haveSameMaker(m_connection.get(), m_owner, m_manager);
}

void X11ForeignDrags::askForManager()
{
    auto* const connection = m_connection.get();
    m_question = xcb_get_property(connection, 0, rootOf(connection), m_managerAtom, XCB_ATOM_WINDOW, 0, 1).sequence;
    xcb_flush(connection);
}

void X11ForeignDrags::takeManager()
{
    void* answer = nullptr;
    if (!m_question || xcb_poll_for_reply(m_connection.get(), *m_question, &answer, nullptr) == 0)
        return;
    m_question.reset();
    const auto property = owned(static_cast<xcb_get_property_reply_t*>(answer));
    if (!property || xcb_get_property_value_length(property.get()) != sizeof(xcb_window_t))
        return;
    m_manager = *static_cast<const xcb_window_t*>(xcb_get_property_value(property.get()));
    judgeOwner();
}

// The end of the last drag may not have been told.
void X11ForeignDrags::setUnderWay(bool isUnderWay)
{
    const bool wasUnderWay = std::exchange(m_isUnderWay, isUnderWay);
    if ((isUnderWay || wasUnderWay) && onChanged)
        onChanged();
}

} // namespace nookle
