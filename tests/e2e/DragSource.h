#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

/// The window on the X server that a drag of this program comes from.
class DragSource {
public:
    DragSource();
    ~DragSource() { xcb_disconnect(m_connection); }
    DragSource(const DragSource&) = delete;
    DragSource& operator=(const DragSource&) = delete;

    [[nodiscard]] bool isThere() const { return m_window != XCB_WINDOW_NONE; }

    void setProperty(const QByteArray& name, const QByteArray& value);
    [[nodiscard]] QByteArray property(const QByteArray& name);

    [[nodiscard]] xcb_atom_t atom(const QByteArray& name);

private:
    [[nodiscard]] xcb_window_t owner();

    xcb_connection_t* m_connection;
    xcb_window_t m_window;
};
