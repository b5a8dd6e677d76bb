#pragma once

#include <QByteArray>

#include <atomic>
#include <cstdint>
#include <thread>

#include <xcb/xcb.h>

namespace nookle {

/// Another program that owns a selection, on a thread and a connection of its own.
class SelectionSource {
public:
    enum class Manner {
        whole,
        refusing,
        silent,
        inPieces,
        /// Sends one piece, and ends.
        dyingMidway,
        /// Sends one piece, and no more.
        stuckMidway,
        /// Sends a byte at a time, without end.
        dripping,
    };

    /// Owns the selection once this returns.
    SelectionSource(const QByteArray& selection, QByteArray bytes, Manner manner);
    ~SelectionSource();
    SelectionSource(const SelectionSource&) = delete;
    SelectionSource& operator=(const SelectionSource&) = delete;

    [[nodiscard]] std::uint32_t selection() const { return m_selection; }

private:
    void serve();
    void answer(const xcb_selection_request_event_t& request);
    void beginPieces(const xcb_selection_request_event_t& request);
    void sendPiece(xcb_window_t requestor, xcb_atom_t property);
    void notify(const xcb_selection_request_event_t& request, xcb_atom_t property);
    [[nodiscard]] xcb_atom_t atom(const QByteArray& name);

    xcb_connection_t* m_connection;
    xcb_window_t m_window;
    xcb_atom_t m_selection;
    QByteArray m_bytes;
    qsizetype m_sent = 0;
    Manner m_manner;
    std::atomic<bool> m_isEnding = false;
    std::thread m_thread;
};

} // namespace nookle
