// Takes the pictures of the README from the running program, on virtual desktops that compose windows.
// Usage: nookle_readme_pictures PROGRAM FOLDER

#include "AnimatedPng.h"
#include "BusClient.h"
#include "FileManager.h"
#include "PrivateDesktop.h"
#include "PublishedSettings.h"
#include "Shelf.h"
#include "Waiting.h"

#include <QCoreApplication>
#include <QDir>
#include <QLinearGradient>
#include <QMargins>
#include <QPainter>
#include <QPolygonF>
#include <QThread>
#include <QUrl>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <memory>

using namespace nookle::e2e;

namespace {

const QSize screenSize(800, 540);
const QRgb lightWallpaper = qRgb(0x7d, 0x9c, 0xb0);
const QRgb darkWallpaper = qRgb(0x24, 0x34, 0x3e);

int fail(const char* reason)
{
    std::fprintf(stderr, "nookle_readme_pictures: %s\n", reason);
    return EXIT_FAILURE;
}

/// A landscape at dusk.
[[nodiscard]] QImage landscape()
{
    QImage image(480, 320, QImage::Format_RGB32);
    QPainter painter(&image);
    QLinearGradient sky(0, 0, 0, image.height());
    sky.setColorAt(0, QColor(0x2f, 0x5d, 0x9a));
    sky.setColorAt(1, QColor(0xff, 0xc9, 0x8b));
    painter.fillRect(image.rect(), sky);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x3c, 0x5f, 0x50));
    painter.drawPolygon(QPolygonF({ { 0, 320 }, { 150, 120 }, { 300, 320 } }));
    painter.setBrush(QColor(0x28, 0x45, 0x3c));
    painter.drawPolygon(QPolygonF({ { 180, 320 }, { 350, 170 }, { 480, 320 } }));
    return image;
}

/// A desktop with the machine's fonts and icons, whose windows are composed.
[[nodiscard]] std::unique_ptr<PrivateDesktop> composedDesktop(const QSize& size, QRgb wallpaper)
{
    auto desktop = PrivateDesktop::tryCreate({ size, QStringLiteral("xfwm4"), false });
    if (!desktop || !waitFor([&] { return desktop->screen().hasOwner("_NET_WM_CM_S0"); }))
        return nullptr;
    desktop->screen().setWallpaper(wallpaper);
    desktop->setVariable(QStringLiteral("XDG_DATA_DIRS"), QStringLiteral("/usr/local/share:/usr/share"));
    desktop->setVariable(QStringLiteral("FONTCONFIG_FILE"), QStringLiteral("/etc/fonts/fonts.conf"));
    return desktop;
}

/// Waits until the screen has not changed for a while.
[[nodiscard]] bool isQuiet(XScreen& screen)
{
    constexpr int rest = 700;
    return waitFor([&] {
        const QImage shown = screen.picture();
        return holdsFor([&] { return screen.picture() == shown; }, rest);
    });
}

/// The upper right corner of the screen with several kinds of items on the shelf.
[[nodiscard]] bool takeKinds(const QString& program, bool isDark, int scale, const QString& path)
{
    const auto desktop = composedDesktop(screenSize * scale, isDark ? darkWallpaper : lightWallpaper);
    if (!desktop)
        return false;
    PublishedSettings settings(desktop->display());
    settings.publish({ { "Net/ThemeName", isDark ? "Adwaita-dark" : "Adwaita" }, { "Gtk/FontName", "DejaVu Sans 9" } });
    desktop->setVariable(QStringLiteral("QT_SCALE_FACTOR"), QString::number(scale));
    desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    desktop->writeFile(QStringLiteral("files/Budget.ods"), "1");
    desktop->writeFile(QStringLiteral("files/Tickets.pdf"), "1");
    desktop->writeFile(QStringLiteral("files/Trip/Map.txt"), "1");
    if (!landscape().save(desktop->home(QStringLiteral("files/Evening.png"))))
        return false;
    Shelf shelf(*desktop, program);
    const auto file = [&](const char* name) { return desktop->home(QStringLiteral("files/") + QLatin1String(name)); };
    if (!shelf.start({ file("Trip"), file("Tickets.pdf"), QStringLiteral("https://debian.org/") }))
        return false;
    const auto bus = BusClient::tryConnect(desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    if (!bus)
        return false;
    const QString text = QStringLiteral("Pack\n\nPassport, tickets, charger, a book for the train, rain coat, and the "
                                        "good camera.");
    (void)bus->addToShelf({}, text);
    (void)bus->addToShelf({ QUrl::fromLocalFile(file("Evening.png")).toString() }, {});
    XScreen& screen = desktop->screen();
    constexpr int panelWidth = 112;
    const auto panel = [&] { return screen.window("nookle", panelWidth * scale); };
    if (!waitFor([&] { return panel().has_value(); }) || !isQuiet(screen))
        return false;
    const int margin = 28 * scale;
    return screen.picture(panel()->frame.adjusted(-2 * margin, -margin, 0, margin).intersected(screen.geometry()))
        .save(path);
}

/// The window of the settings, which the panel's menu opens.
[[nodiscard]] bool takeSettings(const QString& program, const QString& path)
{
    const auto desktop = composedDesktop({ 800, 760 }, lightWallpaper);
    if (!desktop)
        return false;
    PublishedSettings settings(desktop->display());
    settings.publish({ { "Net/ThemeName", "Adwaita" }, { "Gtk/FontName", "DejaVu Sans 9" } });
    desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"),
                       "[General]\npanelPinned=true\n[screenshots]\nlocation=/home/me/Pictures/Screenshots\n");
    Shelf shelf(*desktop, program);
    XScreen& screen = desktop->screen();
    if (!shelf.start() || !waitFor([&] { return shelf.panel().has_value(); }) || !isQuiet(screen))
        return false;
    constexpr std::uint8_t rightButton = 3;
    screen.moveTo(shelf.panel()->frame.center() + QPoint(0, 200));
    screen.press(rightButton);
    screen.release(rightButton);
    if (!isQuiet(screen))
        return false;
    // "Quit" is the last entry, and "Settings" the one above it.
    for (const xcb_keysym_t key : { XScreen::up, XScreen::up, XScreen::enter }) {
        screen.pressKey(key);
        screen.releaseKey(key);
    }
    constexpr int formWidth = 440;
    const auto window = [&] { return screen.window("nookle", formWidth); };
    if (!waitFor([&] { return window().has_value(); }))
        return false;
    // Away from the shelf, which is not shown.
    screen.moveTo({ 20, 20 });
    if (!isQuiet(screen))
        return false;
    const QMargins frame(24, 48, 24, 28);
    return screen.picture(window()->frame.marginsAdded(frame).intersected(screen.geometry())).save(path);
}

/// Films the screen while the mouse moves.
class Film {
public:
    explicit Film(XScreen& screen)
        : m_screen(screen)
    {
    }

    void moveTo(const QPoint& end)
    {
        constexpr int stepLength = 36;
        const QPointF start = m_screen.pointer();
        const QPointF way = QPointF(end) - start;
        const int steps = std::max(1, static_cast<int>(std::hypot(way.x(), way.y()) / stepLength));
        for (int step = 1; step <= steps; ++step) {
            m_screen.moveTo((start + way * step / steps).toPoint());
            take(interval);
        }
    }

    void rest(int milliseconds)
    {
        for (int time = 0; time < milliseconds; time += interval) {
            QThread::msleep(interval);
            take(interval);
        }
    }

    /// A long look at what is there.
    void hold(int milliseconds) { take(milliseconds); }

    [[nodiscard]] bool save(const QString& path) const { return m_film.save(path); }

private:
    static constexpr int interval = 70;

    // The server leaves the pointer out of pictures.
    void take(int milliseconds)
    {
        QImage picture = m_screen.picture();
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(m_screen.pointer());
        painter.setPen(QPen(Qt::white, 1.2));
        painter.setBrush(Qt::black);
        painter.drawPolygon(
            QPolygonF({ { 0, 0 }, { 0, 17 }, { 4, 13 }, { 7, 20 }, { 10, 19 }, { 7, 12 }, { 12, 12 } }));
        painter.end();
        m_film.add(picture, milliseconds);
    }

    XScreen& m_screen;
    AnimatedPng m_film;
};

/// A file is dragged onto the shelf, and an image off it, into the file manager.
[[nodiscard]] bool takeDrag(const QString& program, const QString& path)
{
    const auto desktop = composedDesktop(screenSize, lightWallpaper);
    if (!desktop)
        return false;
    XScreen& screen = desktop->screen();
    PublishedSettings settings(desktop->display());
    settings.publish({ { "Net/IconThemeName", "Adwaita" }, { "Gtk/FontName", "DejaVu Sans 9" } });
    desktop->writeFile(QStringLiteral("files/Travel plan.txt"), "Monday: pack.\n");
    if (!landscape().save(desktop->home(QStringLiteral("Evening.png"))))
        return false;
    Shelf shelf(*desktop, program);
    const auto files = FileManager::tryOpen(*desktop, desktop->home(QStringLiteral("files")));
    if (!files || !shelf.start({ desktop->home(QStringLiteral("Evening.png")) }))
        return false;
    const int right = screenSize.width();
    screen.moveTo(files->icon() + QPoint(60, 160));
    // What it was started with shows it for a moment.
    if (!waitFor([&] { return shelf.isAtRest(right); }) || !waitFor([&] { return !shelf.panel(); }))
        return false;
    if (!isQuiet(screen))
        return false;
    Film film(screen);
    film.hold(600);
    film.moveTo(files->icon());
    if (!screen.beginDrag(files->icon()))
        return false;
    film.moveTo({ right - 1, 200 });
    film.rest(400);
    if (!waitFor([&] { return shelf.isAtRest(right); }))
        return false;
    film.moveTo({ right - 60, 260 });
    film.rest(200);
    if (!waitFor([&] { return shelf.isDropTarget(); }))
        return false;
    screen.release();
    film.rest(500);
    film.hold(700);
    const QPoint image = shelf.firstTile() + QPoint(0, 85);
    film.moveTo(image);
    if (!screen.beginDrag(image))
        return false;
    film.moveTo(files->emptyPlace() - QPoint(100, 60));
    film.rest(200);
    screen.release();
    film.rest(1800);
    film.hold(900);
    return film.save(path);
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return fail("usage: nookle_readme_pictures PROGRAM FOLDER");
    const QString program = arguments[1];
    const QDir folder(arguments[2]);
    if (!folder.mkpath(QStringLiteral(".")))
        return fail("the folder cannot be made");
    if (!takeKinds(program, false, 2, folder.filePath(QStringLiteral("kinds-light.png")))
        || !takeKinds(program, true, 2, folder.filePath(QStringLiteral("kinds-dark.png"))))
        return fail("no picture of the shelf was taken");
    if (!takeSettings(program, folder.filePath(QStringLiteral("settings.png"))))
        return fail("no picture of the settings was taken");
    if (!takeDrag(program, folder.filePath(QStringLiteral("drag.png"))))
        return fail("no picture of a drag was taken");
    return EXIT_SUCCESS;
}
