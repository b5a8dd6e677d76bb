#include "InterfaceInLanguage.h"

#include <QApplication>
#include <QDir>
#include <QPainter>

#include <algorithm>
#include <cstdio>

namespace {

[[nodiscard]] QImage picture(nookle::InterfaceInLanguage& interface)
{
    constexpr int gap = 12;
    QList<QPixmap> parts;
    QSize size(gap, 0);
    for (QWidget* widget : interface.widgets()) {
        parts.append(widget->grab());
        size += QSize(parts.constLast().width() + gap, 0);
        size.setHeight(std::max(size.height(), parts.constLast().height() + 2 * gap));
    }
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::gray);
    QPainter painter(&picture);
    int left = gap;
    for (const QPixmap& part : parts) {
        painter.drawPixmap(left, gap, part);
        left += part.width() + gap;
    }
    return picture;
}

} // namespace

// Draws the interface in every language into a folder, to be looked at. The letters of Chinese and Japanese show where
// FONTCONFIG_FILE names fonts that have them, and NOOKLE_TEST_HOME is set, which keeps the environment.
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
    nookle::prepareDesktopFont();
    for (const QString& language : QStringLiteral(NOOKLE_LANGUAGES).split(QLatin1Char(' '))) {
        nookle::InterfaceInLanguage interface(language, nookle::LanguageInUse::MissingLetters::asTheyAre);
        if (!picture(interface).save(folder.filePath(language + QStringLiteral(".png"))))
            return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
