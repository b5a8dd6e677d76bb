#include "ToolkitEnvironment.h"

#include <QTest>

using namespace nookle;

class ToolkitEnvironmentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theToolkitIsToldOfTheChoice();
    void underXWaylandGtkKeepsToTheXServer();
    void gtkTakesNoScaleOfTheSettings();
    void whatWasSetBeforeIsBackAfterwards();
    void theToolkitDoesNotWaitForAnotherCompositor();
    void theToolkitIsToldOfLargerWindows();
    void theToolkitIsToldOfAnotherResolution();
    void theUsersOwnScaleComesFirst_data();
    void theUsersOwnScaleComesFirst();
};

void ToolkitEnvironmentTest::init()
{
    qunsetenv("QT_QPA_PLATFORM");
    qunsetenv("GDK_BACKEND");
    qunsetenv("GDK_SCALE");
    for (const char* name : { "QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_ENABLE_HIGHDPI_SCALING",
                              "QT_USE_PHYSICAL_DPI", "QT_FONT_DPI" })
        qunsetenv(name);
}

void ToolkitEnvironmentTest::theToolkitIsToldOfTheChoice()
{
    const BackendChoice choice{ DesktopKind::wayland, {} };
    {
        const ToolkitEnvironment environment(choice);
        QCOMPARE(qgetenv("QT_QPA_PLATFORM"), choice.toolkitPlatform());
        QVERIFY(!qEnvironmentVariableIsSet("GDK_BACKEND"));
    }
    QVERIFY(!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"));
}

void ToolkitEnvironmentTest::underXWaylandGtkKeepsToTheXServer()
{
    {
        const ToolkitEnvironment environment(BackendChoice{ DesktopKind::xwayland, {} });
        QCOMPARE(qgetenv("GDK_BACKEND"), QByteArray("x11"));
    }
    QVERIFY(!qEnvironmentVariableIsSet("GDK_BACKEND"));
}

void ToolkitEnvironmentTest::gtkTakesNoScaleOfTheSettings()
{
    {
        const ToolkitEnvironment environment(BackendChoice{ DesktopKind::x11, {} });
        QCOMPARE(qgetenv("GDK_SCALE"), QByteArray("1"));
    }
    QVERIFY(!qEnvironmentVariableIsSet("GDK_SCALE"));
    qputenv("GDK_SCALE", "2");
    const ToolkitEnvironment environment(BackendChoice{ DesktopKind::x11, {} });
    QCOMPARE(qgetenv("GDK_SCALE"), QByteArray("2"));
}

void ToolkitEnvironmentTest::whatWasSetBeforeIsBackAfterwards()
{
    qputenv("QT_QPA_PLATFORM", "minimal");
    qputenv("GDK_BACKEND", "");
    {
        const ToolkitEnvironment environment(BackendChoice{ DesktopKind::xwayland, {} });
    }
    QCOMPARE(qgetenv("QT_QPA_PLATFORM"), QByteArray("minimal"));
    QVERIFY(qEnvironmentVariableIsSet("GDK_BACKEND"));
}

void ToolkitEnvironmentTest::theToolkitDoesNotWaitForAnotherCompositor()
{
    const BackendChoice choice{ DesktopKind::wayland, {} };
    qputenv("QT_WAYLAND_RECONNECT", "1");
    {
        const ToolkitEnvironment environment(choice);
        QVERIFY(!qEnvironmentVariableIsSet("QT_WAYLAND_RECONNECT"));
    }
    QCOMPARE(qgetenv("QT_WAYLAND_RECONNECT"), QByteArray("1"));
    qunsetenv("QT_WAYLAND_RECONNECT");
    {
        const ToolkitEnvironment environment(choice);
    }
    QVERIFY(!qEnvironmentVariableIsSet("QT_WAYLAND_RECONNECT"));
}

void ToolkitEnvironmentTest::theToolkitIsToldOfLargerWindows()
{
    const BackendChoice choice{ DesktopKind::x11, {} };
    {
        const ToolkitEnvironment environment(choice, { 2, {} });
        QCOMPARE(qgetenv("QT_SCALE_FACTOR"), QByteArray("2"));
    }
    {
        const ToolkitEnvironment environment(choice, { 1, {} });
        QVERIFY(!qEnvironmentVariableIsSet("QT_SCALE_FACTOR"));
    }
    // A variable without a value says nothing.
    qputenv("QT_SCALE_FACTOR", "");
    const ToolkitEnvironment environment(choice, { 2, {} });
    QCOMPARE(qgetenv("QT_SCALE_FACTOR"), QByteArray("2"));
}

void ToolkitEnvironmentTest::theToolkitIsToldOfAnotherResolution()
{
    const BackendChoice choice{ DesktopKind::x11, {} };
    {
        const ToolkitEnvironment environment(choice, { 1, 96 });
        QCOMPARE(qgetenv("QT_FONT_DPI"), QByteArray("96"));
    }
    QVERIFY(!qEnvironmentVariableIsSet("QT_FONT_DPI"));
    qputenv("QT_FONT_DPI", "120");
    const ToolkitEnvironment environment(choice, { 1, 96 });
    QCOMPARE(qgetenv("QT_FONT_DPI"), QByteArray("120"));
}

void ToolkitEnvironmentTest::theUsersOwnScaleComesFirst_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("value");
    QTest::newRow("scale") << QByteArray("QT_SCALE_FACTOR") << QByteArray("1.25");
    QTest::newRow("screens") << QByteArray("QT_SCREEN_SCALE_FACTORS") << QByteArray("1;2");
    QTest::newRow("none") << QByteArray("QT_ENABLE_HIGHDPI_SCALING") << QByteArray("0");
    QTest::newRow("resolution of the display") << QByteArray("QT_USE_PHYSICAL_DPI") << QByteArray("1");
    QTest::newRow("resolution") << QByteArray("QT_FONT_DPI") << QByteArray("192");
}

void ToolkitEnvironmentTest::theUsersOwnScaleComesFirst()
{
    QFETCH(const QByteArray, name);
    QFETCH(const QByteArray, value);
    qputenv(name.constData(), value);
    const QByteArray before = qgetenv("QT_SCALE_FACTOR");
    const ToolkitEnvironment environment(BackendChoice{ DesktopKind::x11, {} }, { 2, {} });
    QCOMPARE(qgetenv("QT_SCALE_FACTOR"), before);
    QCOMPARE(qgetenv(name.constData()), value);
}

QTEST_GUILESS_MAIN(ToolkitEnvironmentTest)
#include "ToolkitEnvironmentTest.moc"
