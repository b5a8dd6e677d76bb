#include "ToolkitEnvironment.h"

#include <QTest>

using namespace nookle;

class ToolkitEnvironmentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theToolkitIsToldOfTheChoice();
    void underXWaylandGtkKeepsToTheXServer();
    void whatWasSetBeforeIsBackAfterwards();
};

void ToolkitEnvironmentTest::init()
{
    qunsetenv("QT_QPA_PLATFORM");
    qunsetenv("GDK_BACKEND");
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

QTEST_GUILESS_MAIN(ToolkitEnvironmentTest)
#include "ToolkitEnvironmentTest.moc"
