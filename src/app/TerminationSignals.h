#pragma once

#include <QObject>
#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace nookle {

/// Calls `onTerminate` on the main thread at SIGTERM, SIGINT and SIGHUP. One for the life of the program.
class TerminationSignals final : public QObject {
    Q_OBJECT

public:
    explicit TerminationSignals(std::function<void()> onTerminate);
    ~TerminationSignals() override;

private:
    std::function<void()> m_onTerminate;
    int m_descriptor;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace nookle
