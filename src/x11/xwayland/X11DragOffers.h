#pragma once

#include "DragOffers.h"
#include "X11SelectionWatch.h"
#include "XcbAtoms.h"
#include "XcbConnection.h"

#include <QObject>
#include <QSocketNotifier>

#include <cstdint>
#include <memory>

namespace nookle {

/// Watches the selection XdndSelection, which the source of a drag owns. The compositor, which owns it for Wayland
/// programs, withdraws its offer when the drag ends. An X11 program may not; but the server knows of its drag's button.
/// Asks on a connection of its own, so that the toolkit gets none of the answers. Main thread only.
class X11DragOffers final : public QObject, public DragOffers {
    Q_OBJECT

public:
    /// `connection` is the toolkit's connection.
    explicit X11DragOffers(xcb_connection_t* connection);
    ~X11DragOffers() override;

    void ask() override;

private:
    [[nodiscard]] bool connectToServer();
    [[nodiscard]] DragOwner present() const;
    void askCompositor();
    void askForButton();
    void readEvents();

    xcb_connection_t* m_connection;
    XcbAtoms m_atoms;
    X11SelectionWatch m_watch;
    /// Where the answers come from; null until the first question.
    XcbConnection m_questions;
    std::unique_ptr<QSocketNotifier> m_notifier;
    /// The window that the answers are sent to.
    std::uint32_t m_requestor = 0;
};

} // namespace nookle
