#include "BusLoss.h"

#include "PrivateBus.h"

#include <gio/gio.h>

#include <QTest>

#include <memory>

using namespace nookle;

class BusLossTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aBusThatDiesDoesNotEndTheProgram();
};

void BusLossTest::aBusThatDiesDoesNotEndTheProgram()
{
    outliveSessionBus();
    auto bus = std::make_unique<PrivateBus>();
    QVERIFY(!bus->address().isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus->address());
    GDBusConnection* const connection = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    QVERIFY(connection);
    QVERIFY(g_dbus_connection_get_exit_on_close(connection));
    bool isOver = false;
    // Called after GLib's own handler.
    g_signal_connect_after(connection, "closed",
                           G_CALLBACK(+[](GDBusConnection*, gboolean, GError*, bool* over) { *over = true; }), &isOver);
    bus.reset();
    QTRY_VERIFY((g_main_context_iteration(nullptr, FALSE), isOver));
    g_object_unref(connection);
}

QTEST_GUILESS_MAIN(BusLossTest)
#include "BusLossTest.moc"
