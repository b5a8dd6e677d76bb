#include "GoldenScenes.h"

#include <QApplication>
#include <QDir>

#include <cstdio>

// Draws every scene into a folder. The pictures are to be looked at before they replace the ones that are kept.
int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s FOLDER\n", argv[0]);
        return EXIT_FAILURE;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    if (!folder.mkpath(QStringLiteral(".")))
        return EXIT_FAILURE;
    nookle::prepareGoldenLook();
    for (const nookle::GoldenScene& scene : nookle::goldenScenes()) {
        if (!nookle::drawScene(scene).save(folder.filePath(scene.name + QStringLiteral(".png"))))
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
