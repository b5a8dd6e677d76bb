#pragma once

#include "Shortcut.h"
#include "ShortcutStatus.h"

#include <QList>
#include <QObject>

#include <functional>

namespace nookle {

/// A service of the desktop that gives shortcuts to programs. Its answers come later; no operation waits for the
/// service. Main thread only.
class ShortcutService : public QObject {
    Q_OBJECT

public:
    /// Asks for `shortcuts` instead of those before, and again whenever the service has started anew. There is at least
    /// one.
    virtual void bind(const QList<Shortcut>& shortcuts) = 0;

    /// Gives the shortcuts back. What the user has chosen for them is kept.
    virtual void release() = 0;

    [[nodiscard]] const ShortcutStatus& status() const { return m_status; }

    /// Called when the status has changed. Set by the owner.
    std::function<void()> onChanged = [] {};

    /// Called when the keys of a shortcut are pressed. Set by the owner.
    std::function<void(const QString& id)> onPressed = [](const QString&) {};

protected:
    /// Tells the owner if the status is another one. The owner may call this object at once.
    void setStatus(const ShortcutStatus& status);

private:
    ShortcutStatus m_status;
};

} // namespace nookle
