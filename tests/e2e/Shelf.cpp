#include "Shelf.h"

#include "Waiting.h"

#include <utility>

namespace nookle::e2e {

namespace {

inline constexpr int panelWidth = 112;
inline constexpr QPoint firstPreview(56, 60);

} // namespace

Shelf::Shelf(PrivateDesktop& desktop, QString program)
    : ShelfProgram(desktop, std::move(program))
    , m_desktop(desktop)
{
}

bool Shelf::start(const QStringList& arguments)
{
    launch(arguments);
    // The last thing that it does before it waits for events.
    const XScreen& screen = m_desktop.screen();
    return waitFor([&screen] { return screen.isShortcutHeld(screen.keyFor('d')); });
}

std::optional<XWindow> Shelf::panel() const
{
    return m_desktop.screen().window("nookle", panelWidth);
}

bool Shelf::isAtRest(int rightEdge) const
{
    const auto window = panel();
    return window && window->frame.x() + panelWidth == rightEdge;
}

bool Shelf::isDropTarget() const
{
    const auto window = panel();
    if (!window)
        return false;
    // A frame of two pixels stands along the edge of the panel then, and else a line of one.
    constexpr int depth = 10;
    const QPoint edge(window->frame.center().x(), window->frame.bottom());
    const QImage picture = m_desktop.screen().picture(QRect(edge - QPoint(0, depth - 1), QSize(1, depth)));
    return picture.pixel(0, depth - 2) != picture.pixel(0, 0);
}

QPoint Shelf::firstTile() const
{
    const auto window = panel();
    return window ? window->frame.topLeft() + firstPreview : QPoint();
}

} // namespace nookle::e2e
