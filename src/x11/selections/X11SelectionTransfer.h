#pragma once

#include <QByteArray>

#include <cstdint>
#include <optional>

#include <xcb/xcb.h>

namespace nookle {

/// One request for a selection. It has a window of its own, so an answer that arrives after its end has no effect.
/// Whoever reads the connection hands it the events.
class X11SelectionTransfer final {
public:
    /// What becomes of an answer that is larger than the limit.
    enum class Excess {
        /// It is not taken at all.
        refuse,
        /// Its beginning is taken.
        cutOff,
    };

    struct Request {
        /// Both are atoms.
        std::uint32_t selection;
        std::uint32_t target;
        /// A timestamp of the server.
        std::uint32_t time;
        qsizetype maximumSize;
        Excess excess = Excess::refuse;
    };

    /// Sends the request. `connection` must outlive the transfer.
    X11SelectionTransfer(xcb_connection_t* connection, const Request& request);
    ~X11SelectionTransfer();
    X11SelectionTransfer(const X11SelectionTransfer&) = delete;
    X11SelectionTransfer& operator=(const X11SelectionTransfer&) = delete;

    /// Ignores events that do not belong to this transfer.
    void handle(const xcb_generic_event_t& event);

    [[nodiscard]] bool isDone() const { return m_state == State::done; }

    /// What was delivered. None if the owner has refused, if there is none, or if it delivered more than the limit and
    /// its beginning is not wanted.
    [[nodiscard]] const std::optional<QByteArray>& bytes() const { return m_bytes; }

    /// Whether there were more bytes than the limit.
    [[nodiscard]] bool wasTooLarge() const { return m_wasTooLarge; }

private:
    enum class State { waitingForAnswer, waitingForPiece, done };

    void takeAnswer(std::uint32_t property);
    void takePiece();
    void finish(std::optional<QByteArray> bytes);
    /// Reads and deletes the property. When it is larger than `maximumSize`, reads its beginning, or none.
    [[nodiscard]] std::optional<QByteArray> take(qsizetype maximumSize);

    xcb_connection_t* m_connection;
    std::uint32_t m_window;
    std::uint32_t m_property;
    std::uint32_t m_pieces;
    qsizetype m_maximumSize;
    Excess m_excess;
    State m_state = State::waitingForAnswer;
    /// The type of the property that `take` read last.
    std::uint32_t m_takenType = 0;
    bool m_wasTooLarge = false;
    QByteArray m_arrived;
    std::optional<QByteArray> m_bytes;
};

} // namespace nookle
