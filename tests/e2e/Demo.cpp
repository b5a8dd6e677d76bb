// Shows the program on a virtual display: a file manager opens, a file is dragged onto the shelf, and a picture is
// written. Usage: nookle_demo PROGRAM PICTURE

#include "FileManager.h"
#include "PrivateDesktop.h"
#include "Shelf.h"
#include "Waiting.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

using namespace nookle::e2e;

namespace {

int fail(const char* reason)
{
    std::fprintf(stderr, "nookle_demo: %s\n", reason);
    return EXIT_FAILURE;
}

/// The tile is drawn once its place no longer looks like the empty panel beside it.
[[nodiscard]] bool showsTile(XScreen& screen, const Shelf& shelf)
{
    const QImage picture = screen.picture(QRect(shelf.firstTile() - QPoint(20, 20), QSize(40, 40)));
    for (int x = 1; x < picture.width(); ++x) {
        if (picture.pixel(x, picture.height() / 2) != picture.pixel(0, picture.height() / 2))
            return true;
    }
    return false;
}

int show(const QString& program, const QString& picturePath)
{
    const QString name = QStringLiteral("Travel plan.txt");
    const auto desktop = PrivateDesktop::tryCreate({ QSize(1280, 800), QStringLiteral("openbox"), false });
    if (!desktop)
        return fail("the virtual display does not start");
    XScreen& screen = desktop->screen();
    if (desktop->start(QStringLiteral("xsetroot"), { QStringLiteral("-solid"), QStringLiteral("#3a5a78") })
            ->waitForExit())
        return fail("the wallpaper cannot be set");
    desktop->writeFile(QStringLiteral("files/") + name, "Monday: pack.\n");
    Shelf shelf(*desktop, program);
    if (!shelf.start())
        return fail("the program does not start");
    const auto files = FileManager::tryOpen(*desktop, desktop->home(QStringLiteral("files")));
    if (!files)
        return fail("the file manager does not start");

    std::printf("Dragging \"%s\" out of the file manager to the right edge ...\n", qPrintable(name));
    if (!screen.beginDrag(files->icon()))
        return fail("the file manager begins no drag");
    screen.moveTo(QPoint(1279, 300));
    if (!waitFor([&] { return shelf.isAtRest(1280); }))
        return fail("the shelf does not come out");
    screen.moveTo(QPoint(1220, 340));
    screen.moveTo(QPoint(1222, 342));
    if (!waitFor([&] { return shelf.isDropTarget(); }))
        return fail("the shelf does not take the file");
    screen.release();
    if (!waitFor([&] { return shelf.savedFileNames() == QStringList{ name }; }))
        return fail("the file is not on the shelf");
    if (!waitFor([&] { return showsTile(screen, shelf); }))
        return fail("the shelf shows no tile");
    if (!screen.picture().save(picturePath))
        return fail("the picture cannot be written");
    std::printf("It is on the shelf. The picture: %s\n", qPrintable(QFileInfo(picturePath).absoluteFilePath()));
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3)
        return fail("usage: nookle_demo PROGRAM PICTURE");
    return show(arguments[1], arguments[2]);
}
