#pragma once

#include <QObject>

#include <functional>

namespace nookle {

/// Listens to the session manager. One for the life of the program, after the application object. Main thread only.
class SessionEnd final : public QObject {
    Q_OBJECT

public:
    SessionEnd();

    /// The session is about to end, and what is not saved yet has to be. It may go on all the same. Set by the owner.
    std::function<void()> onSave = [] {};

    /// The program is to end. Set by the owner.
    std::function<void()> onEnd = [] {};

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace nookle
