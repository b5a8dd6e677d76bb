#include "IconPictures.h"

#include <QDir>
#include <QGuiApplication>

#include <cstdlib>

// Draws the kept pictures of the icon into the folder of its argument.
int main(int argc, char* argv[])
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const QDir folder(QGuiApplication::arguments().value(1, QStringLiteral(".")));
    for (const int size : nookle::iconPictureSizes()) {
        if (!nookle::iconPicture(size, Qt::black).save(folder.filePath(QStringLiteral("%1.png").arg(size))))
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
