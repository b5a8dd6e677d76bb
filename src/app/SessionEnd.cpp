#include "SessionEnd.h"

#include <QEvent>
#include <QGuiApplication>
#include <QSessionManager>

namespace nookle {

SessionEnd::SessionEnd()
{
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [this](QSessionManager& session) {
        // The session manager must not restart the program: the user's login settings decide that.
        session.setRestartHint(QSessionManager::RestartNever);
        onSave();
    });
    qGuiApp->installEventFilter(this);
}

bool SessionEnd::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Quit || watched != qGuiApp)
        return QObject::eventFilter(watched, event);
    // The toolkit would ask every window first, and the panel refuses to be closed.
    onEnd();
    return true;
}

} // namespace nookle
