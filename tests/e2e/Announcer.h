#pragma once

#include <QObject>

/// An event filter for the whole program that says what happens to its windows, a line of standard output each.
class Announcer final : public QObject {
public:
    static void say(const char* line);

    bool eventFilter(QObject* watched, QEvent* event) override;
};
