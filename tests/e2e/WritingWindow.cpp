#include "WritingWindow.h"

#include "Waiting.h"

namespace nookle::e2e {

std::optional<WritingWindow> WritingWindow::find(XScreen& screen, const QByteArray& windowClass)
{
    std::optional<WritingWindow> found;
    const bool isReady = waitFor([&] {
        const auto window = screen.window(windowClass);
        if (window)
            found = WritingWindow(screen, *window);
        return found && found->isAtRest();
    });
    return isReady ? found : std::nullopt;
}

QPoint WritingWindow::text() const
{
    return m_window.frame.center() + QPoint(0, m_window.frame.height() / 4);
}

// A blinking caret changes the picture, too, but less often.
bool WritingWindow::isAtRest() const
{
    constexpr int rest = 300;
    return waitFor([this] {
        const QImage shown = picture();
        return holdsFor([&] { return picture() == shown; }, rest);
    });
}

void WritingWindow::click() const
{
    m_screen->moveTo(text());
    m_screen->press();
    m_screen->release();
}

void WritingWindow::type(char key, bool withControl) const
{
    if (withControl)
        m_screen->pressKey(XScreen::control);
    m_screen->pressKey(static_cast<xcb_keysym_t>(key));
    m_screen->releaseKey(static_cast<xcb_keysym_t>(key));
    if (withControl)
        m_screen->releaseKey(XScreen::control);
}

} // namespace nookle::e2e
