#include "WaylandClipboard.h"

#include <QGuiApplication>
#include <QMimeData>
#include <QTest>
#include <QWindow>

#include <memory>

using namespace nookle;

class WaylandClipboardAccessTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theInterfaceForClipboardManagersGivesAccess_data();
    void theInterfaceForClipboardManagersGivesAccess();
    void withAccessNothingIsInTheWay();
    void withoutAccessTheUserIsToldAboutTheSelection();
    void withoutAccessACopyNeedsTheFocus();

private:
    [[nodiscard]] static std::unique_ptr<QMimeData> text();
};

std::unique_ptr<QMimeData> WaylandClipboardAccessTest::text()
{
    auto data = std::make_unique<QMimeData>();
    data->setText(QStringLiteral("a text"));
    return data;
}

void WaylandClipboardAccessTest::theInterfaceForClipboardManagersGivesAccess_data()
{
    QTest::addColumn<QByteArrayList>("interfaces");
    QTest::addColumn<bool>("isAlways");
    QTest::newRow("of wlroots") << QByteArrayList{ "wl_seat", "zwlr_data_control_manager_v1" } << true;
    QTest::newRow("one that the library does not know")
        << QByteArrayList{ "ext_data_control_manager_v1", "wl_seat" } << false;
    QTest::newRow("neither") << QByteArrayList{ "wl_seat", "wl_data_device_manager", "zwlr_layer_shell_v1" } << false;
}

void WaylandClipboardAccessTest::theInterfaceForClipboardManagersGivesAccess()
{
    QFETCH(const QByteArrayList, interfaces);
    QTEST(clipboardAccess(interfaces) == ClipboardAccess::always, "isAlways");
}

void WaylandClipboardAccessTest::withAccessNothingIsInTheWay()
{
    WaylandClipboard clipboard([] { return true; }, ClipboardAccess::always);
    QStringList reasons;
    int copies = 0;
    clipboard.onCopyFailed = [&](const QString& reason) { reasons.append(reason); };
    clipboard.onCopied = [&] { ++copies; };
    clipboard.copy(text());
    QTRY_COMPARE(copies, 1);
    QCOMPARE(reasons, QStringList());
    QCOMPARE(clipboard.selectionObstacle(), QString());
}

void WaylandClipboardAccessTest::withoutAccessTheUserIsToldAboutTheSelection()
{
    const WaylandClipboard clipboard([] { return true; }, ClipboardAccess::withFocus);
    QCOMPARE(clipboard.selectionObstacle(),
             QStringLiteral("This desktop does not let the shelf read what is selected."));
}

void WaylandClipboardAccessTest::withoutAccessACopyNeedsTheFocus()
{
    WaylandClipboard clipboard([] { return true; }, ClipboardAccess::withFocus);
    QStringList reasons;
    int copies = 0;
    clipboard.onCopyFailed = [&](const QString& reason) { reasons.append(reason); };
    clipboard.onCopied = [&] { ++copies; };
    QVERIFY(!QGuiApplication::focusWindow());
    clipboard.copy(text());
    QCOMPARE(reasons.size(), 1);
    QCOMPARE(copies, 0);
    // The emptying before a copy says nothing of its own.
    clipboard.copy(nullptr);
    QCOMPARE(reasons.size(), 1);

    QWindow window;
    window.show();
    window.requestActivate();
    QTRY_COMPARE(QGuiApplication::focusWindow(), &window);
    clipboard.copy(text());
    QTRY_COMPARE(copies, 1);
    QCOMPARE(reasons.size(), 1);
}

QTEST_MAIN(WaylandClipboardAccessTest)
#include "WaylandClipboardAccessTest.moc"
