// The least that a program with one window of Qt's costs: what Nookle's own figures are compared with.

#include <QApplication>
#include <QScreen>
#include <QWidget>

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    constexpr int width = 112;
    constexpr int margin = 24;
    const QRect screen = QApplication::primaryScreen()->geometry();
    QWidget window;
    window.setGeometry(screen.right() + 1 - width, margin, width, screen.height() - 2 * margin);
    window.setWindowTitle(QStringLiteral("floor"));
    window.show();
    return QApplication::exec();
}
