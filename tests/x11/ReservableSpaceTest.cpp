#include "FakeGlobalShortcuts.h"
#include "PrivateDesktop.h"
#include "X11Backend.h"
#include "XWaylandManner.h"

#include <QGuiApplication>
#include <QTest>

#include <memory>

using namespace nookle;
using namespace nookle::e2e;

class ReservableSpaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anX11SessionCanReserveSpace();
    void underXWaylandSpaceIsReservedWhereTheWindowManagerPlacesThePanel_data();
    void underXWaylandSpaceIsReservedWhereTheWindowManagerPlacesThePanel();
};

void ReservableSpaceTest::anX11SessionCanReserveSpace()
{
    QVERIFY(X11Backend().canReserveSpace());
}

void ReservableSpaceTest::underXWaylandSpaceIsReservedWhereTheWindowManagerPlacesThePanel_data()
{
    QTest::addColumn<WindowPlacing>("placing");
    QTest::addColumn<bool>("canReserveSpace");
    QTest::newRow("it does") << WindowPlacing::windowManager << true;
    QTest::newRow("the program places it") << WindowPlacing::program << false;
}

void ReservableSpaceTest::underXWaylandSpaceIsReservedWhereTheWindowManagerPlacesThePanel()
{
    QFETCH(const WindowPlacing, placing);
    QFETCH(const bool, canReserveSpace);
    const X11Backend backend(std::make_unique<FakeGlobalShortcuts>(),
                             [&](const X11Server& server) { return makeXWaylandManner(server, placing); });
    QCOMPARE(backend.canReserveSpace(), canReserveSpace);
}

int main(int argc, char* argv[])
{
    const auto desktop = PrivateDesktop::tryCreate({ QSize(800, 600), QStringLiteral("openbox"), true });
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    ReservableSpaceTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "ReservableSpaceTest.moc"
