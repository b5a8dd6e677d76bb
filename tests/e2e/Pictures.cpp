// Takes a picture of the README from the running program, on a virtual desktop that composes windows. The home folder
// is seen in the pictures and is written to: scripts/pictures gives an empty one with an ordinary name.
//
// Usage: nookle_readme_pictures kinds-light|kinds-dark|settings|drag PROGRAM FOLDER HOME

#include "BusClient.h"
#include "FileManager.h"
#include "Film.h"
#include "PrivateDesktop.h"
#include "PublishedSettings.h"
#include "Shelf.h"
#include "Waiting.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLinearGradient>
#include <QMargins>
#include <QPainter>
#include <QPolygonF>
#include <QUrl>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <memory>

using namespace nookle::e2e;

namespace {

const QSize screenSize(800, 540);
const QRgb lightWallpaper = qRgb(0x7d, 0x9c, 0xb0);
const QRgb darkWallpaper = qRgb(0x24, 0x34, 0x3e);
/// Of the program, in the home folder.
constexpr auto* settingsFile = ".config/Nookle/Nookle.conf";

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

/// Tests have a home folder and a pointer of their own; the pictures show those of a user.
void setUser(const QString& home)
{
    qputenv("HOME", QFile::encodeName(home));
    qputenv("XCURSOR_PATH", "/usr/share/icons");
    qputenv("XCURSOR_THEME", "Adwaita");
}

/// The path of something in the home folder that the pictures show.
[[nodiscard]] QString inHome(const char* path)
{
    return QDir::home().filePath(QLatin1String(path));
}

/// Makes a file of the home folder, with the folders above it.
[[nodiscard]] bool write(const char* path, const QByteArray& content)
{
    QFile file(inHome(path));
    return QDir().mkpath(QFileInfo(file).path()) && file.open(QIODevice::WriteOnly)
        && file.write(content) == content.size();
}

[[nodiscard]] bool saveLandscape(const char* path)
{
    const QString picture = inHome(path);
    return QDir().mkpath(QFileInfo(picture).path()) && landscape().save(picture);
}

/// Lets programs of the desktop keep their files where they do for a user.
void moveHome(PrivateDesktop& desktop)
{
    desktop.setVariable(QStringLiteral("HOME"), QDir::homePath());
    desktop.setVariable(QStringLiteral("XDG_DATA_HOME"), inHome(".local/share"));
    desktop.setVariable(QStringLiteral("XDG_CONFIG_HOME"), inHome(".config"));
    desktop.setVariable(QStringLiteral("XDG_CACHE_HOME"), inHome(".cache"));
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
    moveHome(*desktop);
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
    if (!write(settingsFile, "[General]\npanelPinned=true\n") || !write("Documents/Tickets.pdf", "1")
        || !write("Documents/Trip/Map.txt", "1") || !saveLandscape("Pictures/Evening.png"))
        return false;
    Shelf shelf(*desktop, program);
    if (!shelf.start(
            { inHome("Documents/Trip"), inHome("Documents/Tickets.pdf"), QStringLiteral("https://debian.org/") }))
        return false;
    const auto bus = BusClient::tryConnect(desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    if (!bus)
        return false;
    const QString text = QStringLiteral("Pack\n\nPassport, tickets, charger, a book for the train, rain coat, and the "
                                        "good camera.");
    (void)bus->addToShelf({}, text);
    (void)bus->addToShelf({ QUrl::fromLocalFile(inHome("Pictures/Evening.png")).toString() }, {});
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
    if (!write(settingsFile, "[General]\npanelPinned=true\n")
        || !QDir::home().mkpath(QStringLiteral(".local/share/Nookle"))
        || !QDir::home().mkpath(QStringLiteral("Pictures/Screenshots")))
        return false;
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

/// A file is dragged onto the shelf, and an image off it, into the file manager.
[[nodiscard]] bool takeDrag(const QString& program, const QString& path)
{
    const auto desktop = composedDesktop(screenSize, lightWallpaper);
    if (!desktop)
        return false;
    XScreen& screen = desktop->screen();
    PublishedSettings settings(desktop->display());
    settings.publish({ { "Net/IconThemeName", "Adwaita" }, { "Gtk/FontName", "DejaVu Sans 9" } });
    // The file manager's tool tip would come up where the image is dropped.
    desktop->setVariable(QStringLiteral("GTK2_RC_FILES"), inHome(".gtkrc-2.0"));
    if (!write(".gtkrc-2.0", "gtk-enable-tooltips = 0\n") || !write("Documents/Travel plan.txt", "Monday: pack.\n")
        || !saveLandscape("Pictures/Evening.png"))
        return false;
    Shelf shelf(*desktop, program);
    const auto files = FileManager::tryOpen(*desktop, inHome("Documents"));
    if (!files || !shelf.start({ inHome("Pictures/Evening.png"), QStringLiteral("https://debian.org/") }))
        return false;
    const int right = screenSize.width();
    screen.moveTo(files->icon() + QPoint(60, 160));
    // What it was started with shows it for a moment.
    if (!waitFor([&] { return shelf.isAtRest(right); }) || !waitFor([&] { return !shelf.panel(); }))
        return false;
    if (!isQuiet(screen))
        return false;
    Film film(screen, desktop->display());
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
    if (arguments.size() != 5)
        return fail("usage: nookle_readme_pictures kinds-light|kinds-dark|settings|drag PROGRAM FOLDER HOME");
    const QString name = arguments[1];
    const QString program = arguments[2];
    const QDir folder(arguments[3]);
    setUser(arguments[4]);
    if (!QDir::home().isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot))
        return fail("the home folder is not empty");
    if (!folder.mkpath(QStringLiteral(".")))
        return fail("the folder cannot be made");
    const QString path = folder.filePath(name + QStringLiteral(".png"));
    const std::map<QString, std::function<bool()>> pictures{
        { QStringLiteral("kinds-light"), [&] { return takeKinds(program, false, 2, path); } },
        { QStringLiteral("kinds-dark"), [&] { return takeKinds(program, true, 2, path); } },
        { QStringLiteral("settings"), [&] { return takeSettings(program, path); } },
        { QStringLiteral("drag"), [&] { return takeDrag(program, path); } },
    };
    const auto picture = pictures.find(name);
    if (picture == pictures.end())
        return fail("there is no picture of that name");
    if (!picture->second())
        return fail("the picture was not taken");
    return EXIT_SUCCESS;
}
