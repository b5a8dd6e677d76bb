#pragma once

#include <QByteArray>

#include <memory>
#include <vector>

#include <xcb/damage.h>
#include <xcb/xcb.h>

namespace nookle::bench {

/// Tells when something is painted in a window on an X server, without a compositor. Runs on a connection of its own.
class RepaintLog {
public:
    /// Null when the server cannot be reached or does not report repaints.
    [[nodiscard]] static std::unique_ptr<RepaintLog> tryCreate(const QByteArray& display);

    /// Lets go of all windows that there are.
    void forget();

    /// Waits until a window of that width is painted that was made later; false when none is.
    [[nodiscard]] bool waitForPaintedWindow(int width);

private:
    struct Disconnect {
        void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
    };

    RepaintLog() = default;

    [[nodiscard]] bool begin();
    void watch(xcb_window_t window);

    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    std::uint8_t m_firstEvent = 0;
    std::vector<xcb_damage_damage_t> m_watches;
};

} // namespace nookle::bench
