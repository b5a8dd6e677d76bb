#include "SelectionRequestor.h"

#include "XcbAtoms.h"
#include "XcbReply.h"

#include <cstring>
#include <utility>

namespace nookle {

SelectionRequestor::SelectionRequestor(QByteArray selection)
    : m_connection(xcb_connect(nullptr, nullptr))
    , m_selection(std::move(selection))
    , m_window(xcb_generate_id(m_connection.get()))
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_window, root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
}

SelectionRequestor::~SelectionRequestor() = default;

std::vector<std::uint32_t> SelectionRequestor::Answer::numbers() const
{
    std::vector<std::uint32_t> list(static_cast<std::size_t>(bytes.size()) / sizeof(std::uint32_t));
    std::memcpy(list.data(), bytes.constData(), list.size() * sizeof(std::uint32_t));
    return list;
}

void SelectionRequestor::ask(const QByteArray& target, const QByteArray& property, std::uint32_t time)
{
    xcb_convert_selection(m_connection.get(), m_window, atom(m_selection), atom(target), atom(property), time);
    xcb_flush(m_connection.get());
}

void SelectionRequestor::askForAll(const std::vector<QByteArray>& targets)
{
    std::vector<std::uint32_t> pairs;
    for (const QByteArray& target : targets)
        pairs.insert(pairs.end(), { atom(target), atom(target) });
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_window, atom("NOOKLE_TEST"), atom("ATOM_PAIR"), 32,
                        static_cast<std::uint32_t>(pairs.size()), pairs.data());
    ask("MULTIPLE");
}

void SelectionRequestor::beWindowManager()
{
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, root, atom("_NET_SUPPORTING_WM_CHECK"),
                        XCB_ATOM_WINDOW, 32, 1, &m_window);
}

void SelectionRequestor::work()
{
    if (!m_connection)
        return;
    while (const auto event = owned(xcb_poll_for_event(m_connection.get())))
        handle(*event);
    xcb_flush(m_connection.get());
}

void SelectionRequestor::handle(const xcb_generic_event_t& event)
{
    const auto type = event.response_type & 0x7f;
    if (type == XCB_SELECTION_NOTIFY) {
        ++m_notifications;
        constexpr qsizetype sizeOnTheWire = 32;
        m_rest = QByteArray(reinterpret_cast<const char*>(&event), sizeOnTheWire)
                     .mid(qsizetype(sizeof(xcb_selection_notify_event_t)));
        const auto& notify = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
        if (notify.property == XCB_ATOM_NONE)
            m_answers[atom("NOOKLE_TEST")].isRefused = true;
        else
            take(notify.property);
        return;
    }
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (type == XCB_PROPERTY_NOTIFY && change.state == XCB_PROPERTY_NEW_VALUE && m_isInPieces[change.atom])
        take(change.atom);
}

void SelectionRequestor::take(std::uint32_t property)
{
    Answer& answer = m_answers[property];
    if (answer.pieces >= m_mostPieces)
        return;
    constexpr std::uint32_t plenty = 100'000'000;
    const auto cookie = xcb_get_property(m_connection.get(), 1, m_window, property, XCB_ATOM_ANY, 0, plenty);
    const auto reply = owned(xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    if (!reply || reply->type == XCB_ATOM_NONE)
        return;
    if (reply->type == atom("INCR")) {
        m_isInPieces[property] = true;
        return;
    }
    const QByteArray bytes(static_cast<const char*>(xcb_get_property_value(reply.get())),
                           xcb_get_property_value_length(reply.get()));
    answer.type = reply->type;
    answer.bytes += bytes;
    const bool isInPieces = m_isInPieces[property];
    answer.isWhole = !isInPieces || bytes.isEmpty();
    answer.pieces += isInPieces ? 1 : 0;
}

std::optional<SelectionRequestor::Answer> SelectionRequestor::answer(const QByteArray& property)
{
    const auto found = m_answers.find(atom(property));
    return found == m_answers.end() ? std::nullopt : std::optional(found->second);
}

QByteArray SelectionRequestor::read(const QByteArray& property)
{
    constexpr std::uint32_t plenty = 1'000'000;
    const auto cookie = xcb_get_property(m_connection.get(), 0, m_window, atom(property), XCB_ATOM_ANY, 0, plenty);
    const auto reply = owned(xcb_get_property_reply(m_connection.get(), cookie, nullptr));
    if (!reply)
        return {};
    return { static_cast<const char*>(xcb_get_property_value(reply.get())),
             xcb_get_property_value_length(reply.get()) };
}

void SelectionRequestor::forget()
{
    m_answers.clear();
    m_isInPieces.clear();
    m_mostPieces = 1'000'000;
}

std::uint32_t SelectionRequestor::atom(const QByteArray& name)
{
    return xcbAtom(m_connection.get(), name);
}

} // namespace nookle
