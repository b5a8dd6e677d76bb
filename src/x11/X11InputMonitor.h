#pragma once

#include "HandlerList.h"
#include "InputMonitor.h"
#include "XcbConnection.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace nookle {

/// Uses raw events of the X Input extension, which arrive no matter which program has the pointer, even during that
/// program's drags. A change of the owner of XdndSelection shows that a drag of content begins. Motion events are
/// selected only while the left button is down, so that mouse movements alone never wake the program, and are handled
/// about forty times a second. The user may have swapped the buttons, so the server's button mapping is applied.
class X11InputMonitor final : public QObject, public InputMonitor {
    Q_OBJECT

public:
    /// `ownConnection` is the program's own connection, whose drags are not counted. If the server lacks these events,
    /// that is logged and no monitor can be installed.
    explicit X11InputMonitor(xcb_connection_t* ownConnection);
    ~X11InputMonitor() override;

    [[nodiscard]] std::unique_ptr<Cancellable> monitorLeftPress(std::function<void()> handler) override;
    [[nodiscard]] std::unique_ptr<Cancellable> monitorLeftDrag(std::function<void()> handler) override;
    [[nodiscard]] qint64 dragChangeCount() const override { return m_dragChangeCount; }

private:
    [[nodiscard]] bool connectToServer();
    [[nodiscard]] bool hasInputExtension();
    [[nodiscard]] bool watchDragSelection();
    void selectRawEvents(bool withMotion);
    void readButtonMapping();
    [[nodiscard]] std::uint32_t userButton(std::uint32_t deviceButton) const;
    void readEvents();
    void handle(const xcb_generic_event_t& event);
    void handleRawEvent(const xcb_generic_event_t& event);
    [[nodiscard]] bool isOwnWindow(std::uint32_t window) const;

    xcb_connection_t* m_ownConnection;
    XcbConnection m_connection;
    std::unique_ptr<QSocketNotifier> m_notifier;
    /// Limits the rate at which movements are handled during a drag: a mouse may report a thousand a second.
    QTimer m_pause;
    std::uint32_t m_root = 0;
    std::uint8_t m_inputOpcode = 0;
    std::uint8_t m_firstFixesEvent = 0;
    /// The logical button for each device button. The first entry is for button 1.
    std::vector<std::uint8_t> m_buttonMapping;
    HandlerList m_pressHandlers;
    HandlerList m_dragHandlers;
    qint64 m_dragChangeCount = 0;
    bool m_isLeftButtonDown = false;
    bool m_hasMoved = false;
};

} // namespace nookle
