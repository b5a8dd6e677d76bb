#include "CompositorEnd.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

class CompositorEndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theEndIsToldOnce_data();
    void theEndIsToldOnce();
    void aSessionWithoutACompositorHasNoEnd();
    void nothingIsToldAfterwards();

private:
    QTemporaryDir m_folder;
};

void CompositorEndTest::init()
{
    qputenv("XDG_RUNTIME_DIR", m_folder.path().toLocal8Bit());
}

void CompositorEndTest::theEndIsToldOnce_data()
{
    QTest::addColumn<QString>("display");
    QTest::newRow("a name") << QStringLiteral("wayland-7");
    QTest::newRow("a path") << m_folder.filePath(QStringLiteral("wayland-8"));
}

void CompositorEndTest::theEndIsToldOnce()
{
    QFETCH(QString, display);
    qputenv("WAYLAND_DISPLAY", display.toLocal8Bit());
    QLocalServer compositor;
    QVERIFY(compositor.listen(QDir(m_folder.path()).filePath(display)));
    int ends = 0;
    const CompositorEnd end([&] { ++ends; });
    QTRY_VERIFY(compositor.hasPendingConnections());
    QCOMPARE(ends, 0);
    compositor.nextPendingConnection()->disconnectFromServer();
    QTRY_COMPARE(ends, 1);
    QCoreApplication::processEvents();
    QCOMPARE(ends, 1);
}

void CompositorEndTest::aSessionWithoutACompositorHasNoEnd()
{
    int ends = 0;
    for (const char* display : { "", "wayland-that-is-not-there" }) {
        qputenv("WAYLAND_DISPLAY", display);
        const CompositorEnd end([&] { ++ends; });
        QCoreApplication::processEvents();
    }
    QCOMPARE(ends, 0);
}

void CompositorEndTest::nothingIsToldAfterwards()
{
    qputenv("WAYLAND_DISPLAY", "wayland-9");
    QLocalServer compositor;
    QVERIFY(compositor.listen(m_folder.filePath(QStringLiteral("wayland-9"))));
    int ends = 0;
    {
        const CompositorEnd end([&] { ++ends; });
        QTRY_VERIFY(compositor.hasPendingConnections());
    }
    compositor.nextPendingConnection()->disconnectFromServer();
    QCoreApplication::processEvents();
    QCOMPARE(ends, 0);
}

QTEST_GUILESS_MAIN(CompositorEndTest)
#include "CompositorEndTest.moc"
