#include "X11DragOffer.h"

#include "XcbClients.h"

#include <QCoreApplication>

#include <algorithm>

#include <xcb/xcb.h>

namespace nookle {

namespace {

inline constexpr const char* dragSelection = "XdndSelection";
inline constexpr const char* listOfTargets = "TARGETS";
inline constexpr const char* severalTargets = "MULTIPLE";
inline constexpr const char* timeOfOwnership = "TIMESTAMP";
inline constexpr const char* pairOfAtoms = "ATOM_PAIR";
inline constexpr const char* utf8String = "UTF8_STRING";
inline constexpr const char* anyText = "TEXT";

/// More than any program requests at a time.
inline constexpr std::size_t mostPairs = 64;

[[nodiscard]] QString plainText()
{
    return QStringLiteral("text/plain");
}

/// None if Latin-1 cannot represent the whole text: a receiver that accepts only Latin-1 gets the complete text or
/// none.
[[nodiscard]] std::optional<QByteArray> latin1(const QByteArray& utf8)
{
    const QString text = QString::fromUtf8(utf8);
    const bool fits = std::all_of(text.begin(), text.end(), [](QChar each) { return each.row() == 0; });
    return fits ? std::optional(text.toLatin1()) : std::nullopt;
}

} // namespace

X11DragOffer::X11DragOffer(xcb_connection_t* connection, const X11PropertyWriter::Limits& limits)
    : m_connection(connection)
    , m_limits(limits)
    , m_atoms(connection,
              { dragSelection, listOfTargets, severalTargets, timeOfOwnership, pairOfAtoms, utf8String, anyText })
    , m_watch(connection, dragSelection)
{
    m_watch.onChanged = [this] { ownerChanged(); };
    QCoreApplication::instance()->installNativeEventFilter(this);
}

X11DragOffer::~X11DragOffer()
{
    if (QCoreApplication::instance())
        QCoreApplication::instance()->removeNativeEventFilter(this);
}

void X11DragOffer::begin(std::shared_ptr<const DragPayload> payload)
{
    if (!m_writer)
        m_writer = X11PropertyWriter::tryCreate(m_limits);
    m_next = std::move(payload);
}

// The events of a connection keep their order, so requests to the new owner arrive after this call.
void X11DragOffer::ownerChanged()
{
    m_payload = m_next && isOwnWindow(m_connection, m_watch.owner()) ? std::move(m_next) : nullptr;
    m_formats.clear();
    const QStringList formats = m_payload ? m_payload->formats() : QStringList();
    for (const QString& format : formats)
        m_formats.emplace_back(xcbAtom(m_connection, format.toLatin1()), format);
}

bool X11DragOffer::nativeEventFilter(const QByteArray& eventType, void* message, qintptr* /*result*/)
{
    if (eventType != "xcb_generic_event_t" || !m_payload || !m_writer)
        return false;
    const auto* request = static_cast<const xcb_selection_request_event_t*>(message);
    if ((request->response_type & 0x7f) != XCB_SELECTION_REQUEST || request->selection != m_atoms[dragSelection])
        return false;
    answer(*request);
    return true;
}

void X11DragOffer::answer(const xcb_selection_request_event_t& request)
{
    // Old receivers set no property.
    const std::uint32_t property = request.property != XCB_ATOM_NONE ? request.property : request.target;
    const bool isAnswered = request.target == m_atoms[severalTargets]
        ? convertPairs(request.requestor, property)
        : convert(request.requestor, request.target, property);
    xcb_selection_notify_event_t notify{};
    notify.response_type = XCB_SELECTION_NOTIFY;
    notify.time = request.time;
    notify.requestor = request.requestor;
    notify.selection = request.selection;
    notify.target = request.target;
    notify.property = isAnswered ? property : xcb_atom_t{ XCB_ATOM_NONE };
    m_writer->notify(notify);
}

bool X11DragOffer::convert(std::uint32_t window, std::uint32_t target, std::uint32_t property)
{
    if (target == m_atoms[listOfTargets]) {
        m_writer->writeNumbers(window, property, XCB_ATOM_ATOM, targets());
        return true;
    }
    if (target == m_atoms[timeOfOwnership]) {
        m_writer->writeNumbers(window, property, XCB_ATOM_INTEGER, { m_watch.ownedSince() });
        return true;
    }
    const auto found = answerFor(window, target);
    return found && m_writer->write(window, property, found->type, found->bytes);
}

// The list goes back to the receiver, with refused targets marked in it.
bool X11DragOffer::convertPairs(std::uint32_t window, std::uint32_t property)
{
    std::vector<std::uint32_t> pairs = m_writer->readNumbers(window, property);
    if (pairs.empty() || pairs.size() % 2 != 0 || pairs.size() / 2 > mostPairs)
        return false;
    for (std::size_t index = 0; index < pairs.size(); index += 2) {
        const std::uint32_t target = pairs[index];
        std::uint32_t& destination = pairs[index + 1];
        const bool canBeAnswered =
            destination != XCB_ATOM_NONE && destination != property && target != m_atoms[severalTargets];
        if (!canBeAnswered || !convert(window, target, destination))
            destination = XCB_ATOM_NONE;
    }
    m_writer->writeNumbers(window, property, m_atoms[pairOfAtoms], pairs);
    return true;
}

std::vector<std::uint32_t> X11DragOffer::targets() const
{
    std::vector<std::uint32_t> list{ m_atoms[listOfTargets], m_atoms[severalTargets], m_atoms[timeOfOwnership] };
    for (const auto& [atom, format] : m_formats) {
        list.push_back(atom);
        if (format != plainText())
            continue;
        for (const std::uint32_t text : { m_atoms[utf8String], m_atoms[anyText], std::uint32_t{ XCB_ATOM_STRING } })
            list.push_back(text);
    }
    return list;
}

std::optional<X11DragOffer::Answer> X11DragOffer::answerFor(std::uint32_t window, std::uint32_t target) const
{
    const auto found = std::find_if(m_formats.begin(), m_formats.end(),
                                    [target](const auto& format) { return format.first == target; });
    if (found == m_formats.end())
        return textFor(window, target);
    auto bytes = m_payload->data(found->second);
    return bytes ? std::optional(Answer{ target, std::move(*bytes) }) : std::nullopt;
}

// A compositor asks for the Wayland programs' "text/plain" by the name of the Latin-1 text, but they expect UTF-8.
std::optional<X11DragOffer::Answer> X11DragOffer::textFor(std::uint32_t window, std::uint32_t target) const
{
    const bool isLatin1 = target == XCB_ATOM_STRING;
    if (!isLatin1 && target != m_atoms[utf8String] && target != m_atoms[anyText])
        return std::nullopt;
    auto bytes = m_payload->data(plainText());
    if (isLatin1 && bytes && !isWindowOfManager(m_connection, window))
        bytes = latin1(*bytes);
    const std::uint32_t type = isLatin1 ? std::uint32_t{ XCB_ATOM_STRING } : m_atoms[utf8String];
    return bytes ? std::optional(Answer{ type, std::move(*bytes) }) : std::nullopt;
}

} // namespace nookle
