#pragma once

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

/// Raw events of the X Input extension, which arrive whichever program has the pointer, also during its drags; and the
/// owner of the XdndSelection, which tells when a drag of content begins. Movements are asked for only while the left
/// button is down, so that the mouse alone never wakes the program, and then looked at some forty times a second. Which
/// button is the left one is the user's choice: the server's mapping is followed.
class X11InputMonitor final : public QObject, public InputMonitor {
    Q_OBJECT

public:
    /// `ownConnection` is the one whose drags are not counted: the program's own. Where the server has no such events,
    /// the reason is logged and no monitor can be installed.
    explicit X11InputMonitor(xcb_connection_t* ownConnection);
    ~X11InputMonitor() override;

    [[nodiscard]] std::unique_ptr<Cancellable> monitorLeftPress(std::function<void()> handler) override;
    [[nodiscard]] std::unique_ptr<Cancellable> monitorLeftDrag(std::function<void()> handler) override;
    [[nodiscard]] qint64 dragChangeCount() const override { return m_dragChangeCount; }

private:
    using Handler = std::function<void()>;
    using Handlers = std::vector<std::weak_ptr<Handler>>;

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

    [[nodiscard]] std::unique_ptr<Cancellable> subscribe(Handlers& handlers, Handler handler);
    static void call(Handlers& handlers);

    xcb_connection_t* m_ownConnection;
    XcbConnection m_connection;
    std::unique_ptr<QSocketNotifier> m_notifier;
    /// Runs while a drag is under way: a mouse may report a thousand movements a second.
    QTimer m_pause;
    std::uint32_t m_root = 0;
    std::uint8_t m_inputOpcode = 0;
    std::uint8_t m_firstFixesEvent = 0;
    /// What the user has made of each button of the device, counted from 1.
    std::vector<std::uint8_t> m_buttonMapping;
    Handlers m_pressHandlers;
    Handlers m_dragHandlers;
    qint64 m_dragChangeCount = 0;
    bool m_isLeftButtonDown = false;
    bool m_hasMoved = false;
};

} // namespace nookle
