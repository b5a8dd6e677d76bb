#include "X11ClipboardContent.h"

#include "Log.h"
#include "XcbAtoms.h"
#include "XcbReply.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace nookle {

namespace {

using Excess = X11SelectionTransfer::Excess;

inline constexpr qsizetype largestContent = qsizetype{ 256 } * 1024 * 1024;
inline constexpr qsizetype mostFormats = 65'536;
inline constexpr qsizetype largestList = mostFormats * qsizetype{ sizeof(std::uint32_t) };

/// A name may have 65,535 bytes, and the server is waited for, so only some are looked up at a time.
inline constexpr std::ptrdiff_t namesAtATime = 256;

/// In bytes. A format that the shelf knows may contain the name of a file, but no more.
inline constexpr qsizetype longestName = 1024;

/// The numbers in `bytes`, each once.
[[nodiscard]] std::vector<std::uint32_t> numbersIn(const QByteArray& bytes)
{
    std::vector<std::uint32_t> numbers(static_cast<std::size_t>(bytes.size()) / sizeof(std::uint32_t));
    if (!numbers.empty())
        std::memcpy(numbers.data(), bytes.constData(), numbers.size() * sizeof(std::uint32_t));
    std::unordered_set<std::uint32_t> known;
    numbers.erase(std::remove_if(numbers.begin(), numbers.end(),
                                 [&](std::uint32_t number) { return !known.insert(number).second; }),
                  numbers.end());
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
    ask(targets, largestList, Excess::cutOff, [this, answer = std::move(answer)](const QByteArray& list) {
        m_atoms = numbersIn(list);
        m_names.clear();
        answerNames(answer);
    });
}

void X11ClipboardContent::answerNames(Formats answer)
{
    const auto end = m_atoms.begin() + std::min(namesAtATime, std::ssize(m_atoms));
    QStringList names = m_connection ? xcbAtomNames(m_connection.get(), { m_atoms.begin(), end }) : QStringList();
    names.removeIf([](const QString& name) { return name.size() > longestName; });
    m_names += names;
    m_atoms.erase(m_atoms.begin(), end);
    if (!m_connection || m_atoms.empty()) {
        answer(m_names);
        return;
    }
    QMetaObject::invokeMethod(
        this, [this, answer = std::move(answer)] { answerNames(answer); }, Qt::QueuedConnection);
}

void X11ClipboardContent::askData(const QString& format, Bytes answer)
{
    const std::uint32_t target = m_connection ? xcbAtom(m_connection.get(), format.toLatin1()) : 0;
    ask(target, m_left, Excess::refuse, [this, answer = std::move(answer)](const QByteArray& bytes) {
        m_left -= bytes.size();
        answer(bytes);
    });
}

void X11ClipboardContent::ask(std::uint32_t target, qsizetype maximumSize, Excess excess, Bytes answer)
{
    m_answer = std::move(answer);
    if (m_connection) {
        watchOwner();
        m_transfer.emplace(m_connection.get(),
                           X11SelectionTransfer::Request{ m_selection, target, XCB_CURRENT_TIME, maximumSize, excess });
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
