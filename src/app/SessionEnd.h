#pragma once

#include <QObject>

#include <functional>

namespace nookle {

/// Listens to the session manager. One for the life of the program, made after the application object. Main thread
/// only.
class SessionEnd final : public QObject {
    Q_OBJECT

public:
    SessionEnd();

    /// Called when the session is about to end: save all unsaved changes. The session may still continue after that.
    /// Set by the owner.
    std::function<void()> onSave = [] {};

    /// Called when the program must end. Set by the owner.
    std::function<void()> onEnd = [] {};

    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace nookle
