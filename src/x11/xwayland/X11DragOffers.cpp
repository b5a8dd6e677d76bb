#include "X11DragOffers.h"

#include "XcbClients.h"
#include "XcbReply.h"

#include <xcb/xcb.h>

namespace nookle {

namespace {

inline constexpr const char* dragSelection = "XdndSelection";
inline constexpr const char* listOfTargets = "TARGETS";
inline constexpr const char* answerProperty = "NOOKLE_DRAG_TARGETS";

[[nodiscard]] xcb_screen_t& screenOf(xcb_connection_t* connection)
{
    return *xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
}

} // namespace

X11DragOffers::X11DragOffers(xcb_connection_t* connection)
    : m_connection(connection)
    , m_atoms(connection, { dragSelection, listOfTargets, answerProperty })
    , m_watch(connection, dragSelection)
{
    m_watch.onChanged = [this] { onOwnerChanged(present()); };
}

X11DragOffers::~X11DragOffers() = default;

DragOwner X11DragOffers::present() const
{
    const std::uint32_t owner = m_watch.owner();
    if (owner == XCB_WINDOW_NONE)
        return DragOwner::none;
    if (isOwnWindow(m_connection, owner))
        return DragOwner::thisProgram;
    return isWindowOfManager(m_connection, owner) ? DragOwner::compositor : DragOwner::otherProgram;
}

bool X11DragOffers::connectToServer()
{
    if (m_questions)
        return true;
    XcbConnection connection(xcb_connect(nullptr, nullptr));
    if (xcb_connection_has_error(connection.get()) != 0)
        return false;
    const xcb_screen_t& screen = screenOf(connection.get());
    m_requestor = xcb_generate_id(connection.get());
    xcb_create_window(connection.get(), 0, m_requestor, screen.root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      screen.root_visual, 0, nullptr);
    m_questions = std::move(connection);
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_questions.get()), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &X11DragOffers::readEvents);
    return true;
}

void X11DragOffers::ask()
{
    if (!connectToServer())
        return;
    const DragOwner owner = present();
    if (owner == DragOwner::compositor)
        askCompositor();
    else if (owner == DragOwner::otherProgram)
        askForButton();
}

void X11DragOffers::askCompositor()
{
    xcb_convert_selection(m_questions.get(), m_requestor, m_atoms[dragSelection], m_atoms[listOfTargets],
                          m_atoms[answerProperty], XCB_CURRENT_TIME);
    xcb_flush(m_questions.get());
}

void X11DragOffers::askForButton()
{
    const auto cookie = xcb_query_pointer(m_questions.get(), screenOf(m_questions.get()).root);
    const auto reply = owned(xcb_query_pointer_reply(m_questions.get(), cookie, nullptr));
    if (reply)
        onAnswered((reply->mask & XCB_BUTTON_MASK_1) != 0);
}

// The list itself does not matter. The next answer overwrites it.
void X11DragOffers::readEvents()
{
    while (const auto event = owned(xcb_poll_for_event(m_questions.get()))) {
        if ((event->response_type & 0x7f) == XCB_SELECTION_NOTIFY)
            onAnswered(reinterpret_cast<const xcb_selection_notify_event_t&>(*event).property != XCB_ATOM_NONE);
    }
    if (xcb_connection_has_error(m_questions.get()) == 0)
        return;
    m_notifier.reset();
    m_questions.reset();
}

} // namespace nookle
