#include "AppFixture.h"
#include "ShelfView.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QTest>

#include <algorithm>

using namespace nookle;

class ReservationSwitchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSwitchIsThereWhereTheDesktopCanReserveSpace_data();
    void theSwitchIsThereWhereTheDesktopCanReserveSpace();
};

namespace {

[[nodiscard]] QStringList shownSwitches()
{
    QStringList titles;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        for (const QCheckBox* each : window->findChildren<QCheckBox*>()) {
            if (each->isVisible())
                titles.append(each->text());
        }
    }
    return titles;
}

} // namespace

void ReservationSwitchTest::theSwitchIsThereWhereTheDesktopCanReserveSpace_data()
{
    QTest::addColumn<bool>("canReserveSpace");
    QTest::newRow("it can") << true;
    QTest::newRow("it cannot") << false;
}

void ReservationSwitchTest::theSwitchIsThereWhereTheDesktopCanReserveSpace()
{
    QFETCH(const bool, canReserveSpace);
    AppFixture app;
    app.desktop.hasReservableSpace = canReserveSpace;
    app.start();
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto panel = std::find_if(windows.begin(), windows.end(),
                                    [](const QWidget* window) { return window->findChild<ShelfView*>() != nullptr; });
    QVERIFY(panel != windows.end());
    (*panel)->findChild<ShelfView*>()->onShowSettings();
    const QStringList switches = shownSwitches();
    QVERIFY(switches.contains(QStringLiteral("Show when dragging to the edge")));
    QCOMPARE(switches.contains(QStringLiteral("Reserve space while the shelf is kept open")), canReserveSpace);
}

QTEST_MAIN(ReservationSwitchTest)
#include "ReservationSwitchTest.moc"
