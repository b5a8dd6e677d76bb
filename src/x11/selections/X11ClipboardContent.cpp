#include "X11ClipboardContent.h"

#include "Log.h"
#include "XcbAtoms.h"
#include "XcbReply.h"

#include <cstring>
#include <utility>

namespace nookle {

namespace {

inline constexpr qsizetype largestContent = qsizetype{ 256 } * 1024 * 1024;
inline constexpr qsizetype largestList = 16 * 1024;

[[nodiscard]] std::vector<std::uint32_t> numbersIn(const QByteArray& bytes)
{
    std::vector<std::uint32_t> numbers(static_cast<std::size_t>(bytes.size()) / sizeof(std::uint32_t));
    if (!numbers.empty())
        std::memcpy(numbers.data(), bytes.constData(), numbers.size() * sizeof(std::uint32_t));
    return numbers;
}

} // namespace

X11ClipboardContent::X11ClipboardContent(const char* selection, std::chrono::milliseconds patience)
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_left(largestContent)
{
    if (xcb_connection_has_error(m_connection.get()) != 0) {
        m_connection.reset();
        return;
    }
    m_selection = xcbAtom(m_connection.get(), selection);
    m_notifier = std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &X11ClipboardContent::readEvent);
    m_patience.setSingleShot(true);
    m_patience.setTimerType(Qt::PreciseTimer);
    connect(&m_patience, &QTimer::timeout, this, &X11ClipboardContent::giveUp);
    m_patience.start(patience);
}

X11ClipboardContent::~X11ClipboardContent() = default;

void X11ClipboardContent::askFormats(Formats answer)
{
    const std::uint32_t targets = m_connection ? xcbAtom(m_connection.get(), "TARGETS") : 0;
    ask(targets, largestList, [this, answer = std::move(answer)](const QByteArray& list) {
        answer(m_connection ? xcbAtomNames(m_connection.get(), numbersIn(list)) : QStringList());
    });
}

void X11ClipboardContent::askData(const QString& format, Bytes answer)
{
    const std::uint32_t target = m_connection ? xcbAtom(m_connection.get(), format.toLatin1()) : 0;
    ask(target, m_left, [this, answer = std::move(answer)](const QByteArray& bytes) {
        m_left -= bytes.size();
        answer(bytes);
    });
}

void X11ClipboardContent::ask(std::uint32_t target, qsizetype maximumSize, Bytes answer)
{
    m_answer = std::move(answer);
    if (m_connection) {
        watchOwner();
        m_transfer.emplace(m_connection.get(),
                           X11SelectionTransfer::Request{ m_selection, target, XCB_CURRENT_TIME, maximumSize });
    }
    readEventSoon();
}

// Before the question, so that the end of the owner is seen also when it comes in between.
void X11ClipboardContent::watchOwner()
{
    const auto cookie = xcb_get_selection_owner(m_connection.get(), m_selection);
    const auto reply = owned(xcb_get_selection_owner_reply(m_connection.get(), cookie, nullptr));
    m_owner = reply ? reply->owner : xcb_window_t{ XCB_WINDOW_NONE };
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    if (m_owner != XCB_WINDOW_NONE)
        xcb_change_window_attributes(m_connection.get(), m_owner, XCB_CW_EVENT_MASK, &events);
}

bool X11ClipboardContent::isEndOfOwner(const xcb_generic_event_t& event) const
{
    const auto& end = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
    return (event.response_type & 0x7f) == XCB_DESTROY_NOTIFY && end.window == m_owner;
}

void X11ClipboardContent::readEvent()
{
    m_readsSoon = false;
    if (!m_connection || xcb_connection_has_error(m_connection.get()) != 0) {
        giveUp();
        return;
    }
    const auto event = owned(xcb_poll_for_event(m_connection.get()));
    if (!event)
        return;
    readEventSoon();
    if (!m_transfer)
        return;
    m_transfer->handle(*event);
    if (m_transfer->wasTooLarge())
        logLine(QStringLiteral(
            "the clipboard or the selection is not read whole: it holds too much, or lists too many formats"));
    if (m_transfer->isDone())
        finish(m_transfer->bytes().value_or(QByteArray()));
    else if (isEndOfOwner(*event))
        finish({});
}

// One event a turn, so that an owner that never ends holds up nothing else. The library may have read the next event
// already, and then the socket does not tell of it.
void X11ClipboardContent::readEventSoon()
{
    if (!std::exchange(m_readsSoon, true))
        QMetaObject::invokeMethod(this, &X11ClipboardContent::readEvent, Qt::QueuedConnection);
}

void X11ClipboardContent::giveUp()
{
    m_transfer.reset();
    m_notifier.reset();
    m_connection.reset();
    finish({});
}

void X11ClipboardContent::finish(const QByteArray& bytes)
{
    const auto answer = std::exchange(m_answer, nullptr);
    m_transfer.reset();
    if (answer)
        answer(bytes);
}

} // namespace nookle
