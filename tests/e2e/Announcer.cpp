#include "Announcer.h"

#include <QEvent>

#include <cstdio>

namespace {

void announce(QEvent::Type type)
{
    switch (type) {
    case QEvent::Enter:
        return Announcer::say("entered");
    case QEvent::Leave:
        return Announcer::say("left");
    case QEvent::MouseButtonPress:
        return Announcer::say("pressed");
    case QEvent::FocusIn:
        return Announcer::say("focused");
    case QEvent::FocusOut:
        return Announcer::say("unfocused");
    case QEvent::Wheel:
        return Announcer::say("wheel");
    case QEvent::DragEnter:
        return Announcer::say("dragged over");
    case QEvent::DragLeave:
        return Announcer::say("drag left");
    default:
        break;
    }
}

} // namespace

void Announcer::say(const char* line)
{
    std::puts(line);
    std::fflush(stdout);
}

bool Announcer::eventFilter(QObject* watched, QEvent* event)
{
    if (watched->isWindowType())
        announce(event->type());
    return QObject::eventFilter(watched, event);
}
