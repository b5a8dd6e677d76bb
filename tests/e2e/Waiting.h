#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QThread>

namespace nookle::e2e {

/// For what takes a program some time: starting, drawing, writing a file.
inline constexpr int patience = 15000;

/// Looks again and again until `condition` holds; false when it does not within `milliseconds`.
template <typename Condition> [[nodiscard]] bool waitFor(Condition condition, int milliseconds = patience)
{
    constexpr int pollInterval = 5;
    QElapsedTimer elapsed;
    elapsed.start();
    while (!condition()) {
        if (elapsed.elapsed() > milliseconds)
            return false;
        QCoreApplication::processEvents();
        QThread::msleep(pollInterval);
    }
    return true;
}

/// Looks again and again for `milliseconds`; false as soon as `condition` does not hold.
template <typename Condition> [[nodiscard]] bool holdsFor(Condition condition, int milliseconds)
{
    return !waitFor([&] { return !condition(); }, milliseconds);
}

} // namespace nookle::e2e
