#pragma once

#include "XcbConnection.h"

#include <QByteArray>

#include <memory>

namespace nookle::bench {

/// Tells at once when a program's window is there. Runs on a connection of its own.
class WindowLog {
public:
    /// Null when the server cannot be reached.
    [[nodiscard]] static std::unique_ptr<WindowLog> tryCreate(const QByteArray& display);

    /// Lets go of all that has happened.
    void forget();

    /// Waits until a window is mapped that has that width, or one that is mapped takes it on; false when none does.
    [[nodiscard]] bool waitForWindow(int width);

private:
    WindowLog() = default;

    XcbConnection m_connection;
};

} // namespace nookle::bench
