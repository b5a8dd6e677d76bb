#pragma once

#include <QMouseEvent>
#include <QWidget>
#include <QWindow>

/// A window that the mouse takes along wherever it is pressed. Its size lets it lie in the middle of the desktop.
class MovingWindow final : public QWidget {
public:
    MovingWindow()
    {
        setWindowTitle(QStringLiteral("moving"));
        resize(800, 500);
    }

protected:
    void mousePressEvent(QMouseEvent* /*event*/) override { windowHandle()->startSystemMove(); }
};
