#pragma once

#include "ForeignDrags.h"
#include "XcbConnection.h"

#include <QDeadlineTimer>
#include <QObject>
#include <QSocketNotifier>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

namespace nookle {

/// Watches drags from a Wayland session, through the X server that the session has for X11 programs: some compositors
/// offer it each drag of a Wayland program at its start. An X server that is not running yet is not started.
class X11ForeignDrags final : public QObject, public ForeignDrags {
    Q_OBJECT

public:
    /// After an end of the server, and while none runs, looks for one again at the earliest after `timeBetweenLooks`.
    explicit X11ForeignDrags(std::chrono::milliseconds timeBetweenLooks = std::chrono::seconds(30));
    ~X11ForeignDrags() override;

    [[nodiscard]] bool watch() override;
    void dragCame() override;
    [[nodiscard]] bool isUnderWay() const override { return m_isUnderWay; }
    [[nodiscard]] bool isOfX11Program() const override { return m_isOfX11Program; }
    void end() override { setUnderWay(false); }

private:
    /// Fails while no server runs.
    [[nodiscard]] bool connectToServer();
    [[nodiscard]] bool watchSelection();
    void letServerEnd(std::uint32_t fixesVersion);
    void readEvents();
    /// Tells of the next change only after a while.
    void pauseReading();
    void setUnderWay(bool isUnderWay);
    void setOwner(std::uint32_t owner);
    void judgeOwner();
    /// Asks for the window manager's window; the answer comes like an event.
    void askForManager();
    void takeManager();

    std::chrono::milliseconds m_timeBetweenLooks;
    XcbConnection m_connection;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::uint8_t m_firstFixesEvent = 0;
    /// Of the property that names the window manager's window.
    std::uint32_t m_managerAtom = 0;
    /// The window manager's window; 0 while it is not known.
    std::uint32_t m_manager = 0;
    /// The number of the question for it that has no answer yet.
    std::optional<unsigned> m_question;
    /// Of the last drag that began; 0 before the first one.
    std::uint32_t m_owner = 0;
    /// No look for the server before this: it reads the names of all processes.
    QDeadlineTimer m_nextLook;
    /// No connection before this: a server that ends may still be there, and another one would be started.
    QDeadlineTimer m_serverEnd;
    bool m_isUnderWay = false;
    bool m_isOfX11Program = false;
};

} // namespace nookle
