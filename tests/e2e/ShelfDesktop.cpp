#include "ShelfDesktop.h"

#include "Waiting.h"

#include <QFile>
#include <QImage>
#include <QList>

#include <algorithm>
#include <utility>
#include <vector>

namespace nookle::e2e {

namespace {

inline constexpr int peerWidth = 400;

/// A window of the other program that is not one of those.
[[nodiscard]] std::optional<XWindow> peerWindow(const XScreen& screen, const std::vector<XWindow>& others)
{
    const auto isOther = [&](const XWindow& window) {
        return std::any_of(others.begin(), others.end(), [&](const XWindow& each) { return each.id == window.id; });
    };
    for (const XWindow& window : screen.windows()) {
        if (window.isMapped && window.windowClass == "Peer" && window.frame.width() == peerWidth && !isOther(window))
            return window;
    }
    return std::nullopt;
}

} // namespace

bool ShelfDesktop::setUpDesktop(const PrivateDesktop::Options& options)
{
    m_desktop = PrivateDesktop::tryCreate(options);
    if (!m_desktop)
        return false;
    m_screen = &m_desktop->screen();
    m_rightEdge = options.hasTwoDisplays ? options.size.width() / 2 : options.size.width();
    m_desktop->writeFile(QStringLiteral("files/note one.txt"), "words");
    m_shelf = std::make_unique<Shelf>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
    return true;
}

void ShelfDesktop::tearDownDesktop()
{
    m_peer.reset();
    m_files.reset();
    m_shelf.reset();
    m_desktop.reset();
}

void ShelfDesktop::tellFailure(const QString& picture)
{
    if (!m_desktop)
        return;
    screen().picture().save(picture);
    screen().release();
    qInfo("the screen at the end: %s\nthe log: %s", qPrintable(picture), m_shelf->log().constData());
}

bool ShelfDesktop::menuIsOpen() const
{
    const auto panel = m_shelf->panel();
    const auto windows = m_screen->windows();
    return std::any_of(windows.begin(), windows.end(), [&](const XWindow& window) {
        const bool isPanel = panel && window.id == panel->id;
        return window.isMapped && window.windowClass == "nookle" && !isPanel && window.frame.width() > 1;
    });
}

void ShelfDesktop::pressShortcut()
{
    const QList<uint> keys{ XScreen::control, XScreen::alt, XScreen::super, 'd' };
    for (const uint key : keys)
        screen().pressKey(key);
    for (const uint key : keys)
        screen().releaseKey(key);
}

std::optional<XWindow> ShelfDesktop::openPeer(const QStringList& arguments, const QString& program)
{
    // The server gives the numbers of windows that are gone to the next program.
    const std::vector<XWindow> others = m_peer ? std::vector<XWindow>() : screen().windows();
    m_peer = m_desktop->start(program, arguments);
    std::optional<XWindow> window;
    QImage previous;
    // Drawn, and not moving any more.
    const bool isOpen = waitFor([&] {
        window = peerWindow(screen(), others);
        const QImage now = window ? screen().picture(window->frame) : QImage();
        return !now.isNull() && std::exchange(previous, now) == now;
    });
    return isOpen ? window : std::nullopt;
}

bool ShelfDesktop::offerToShelf(const QByteArray& payload, const QString& type)
{
    m_desktop->writeFile(QStringLiteral("offered"), payload);
    return dragPeerToShelf({ QStringLiteral("offer"), m_desktop->home(QStringLiteral("offered")), type });
}

bool ShelfDesktop::dragPeerToShelf(const QStringList& arguments)
{
    const auto source = openPeer(arguments);
    return source && screen().beginDrag(source->frame.center()) && dropOnShelf();
}

bool ShelfDesktop::hoverOverShelf()
{
    screen().moveTo(QPoint(rightEdge() - 1, 300));
    if (!waitFor([this] { return m_shelf->isAtRest(rightEdge()); }))
        return false;
    screen().moveTo(QPoint(rightEdge() - 56, 320));
    // A drop before the answer to the last movement is none.
    return waitFor([this] {
        screen().moveTo(screen().pointer() + QPoint(0, 1));
        screen().moveTo(screen().pointer() - QPoint(0, 1));
        return m_shelf->isDropTarget();
    });
}

bool ShelfDesktop::dropOnShelf()
{
    if (!hoverOverShelf())
        return false;
    screen().release();
    return true;
}

void ShelfDesktop::dragBetween(const QPoint& from, const QPoint& to)
{
    screen().moveTo(from);
    screen().press();
    screen().moveTo(to);
    screen().release();
}

QByteArray ShelfDesktop::received() const
{
    QFile file(m_desktop->home(QStringLiteral("received")));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace nookle::e2e
