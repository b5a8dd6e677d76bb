#pragma once

#include "XScreen.h"

#include <QByteArray>
#include <QPoint>

#include <optional>

namespace nookle::e2e {

/// The window of a program that its user writes in: a text editor, or a mail program with a new message.
class WritingWindow {
public:
    /// Returns once the program with that class shows its window, and has drawn it; none when it does not. `screen`
    /// must outlive the result.
    [[nodiscard]] static std::optional<WritingWindow> find(XScreen& screen, const QByteArray& windowClass);

    /// In the text.
    [[nodiscard]] QPoint text() const;
    [[nodiscard]] QImage picture() const { return m_screen->picture(m_window.frame); }
    /// Whether the window has stopped changing, as it does when everything that was dropped on it is there.
    [[nodiscard]] bool isAtRest() const;

    /// Clicks into the text, which gives the window the keyboard.
    void click() const;
    /// Presses a key, perhaps together with Control.
    void type(char key, bool withControl = false) const;

private:
    WritingWindow(XScreen& screen, const XWindow& window)
        : m_screen(&screen)
        , m_window(window)
    {
    }

    XScreen* m_screen;
    XWindow m_window;
};

} // namespace nookle::e2e
