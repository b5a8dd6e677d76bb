#include "ContextMenu.h"

#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

using namespace nookle;

/// A window that gets or loses the focus while a menu is open, as a window manager gives it after a click.
class MenuFocusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFocusThatCameMeanwhileIsThereAfterwards();
    void theFocusThatWentMeanwhileIsGoneAfterwards_data();
    void theFocusThatWentMeanwhileIsGoneAfterwards();
};

void MenuFocusTest::theFocusThatCameMeanwhileIsThereAfterwards()
{
    QWidget panel;
    auto* text = new QLineEdit;
    (new QVBoxLayout(&panel))->addWidget(text);
    panel.show();
    QVERIFY(QTest::qWaitForWindowExposed(&panel));
    QWidget other;
    other.show();
    QTRY_VERIFY(other.isActiveWindow());

    openContextMenu(makeContextMenu({ MenuAction{ QStringLiteral("entry"), true, [] {} } }), QPoint(20, 20), {});
    const QPointer<QWidget> menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    panel.windowHandle()->requestActivate();
    QTRY_COMPARE(QGuiApplication::focusWindow(), panel.windowHandle());
    QVERIFY(!panel.isActiveWindow());
    menu->close();
    QTRY_VERIFY(!menu);
    QTRY_VERIFY(panel.isActiveWindow());
    QVERIFY(text->hasFocus());
}

void MenuFocusTest::theFocusThatWentMeanwhileIsGoneAfterwards_data()
{
    QTest::addColumn<bool>("isElsewhere");
    QTest::newRow("to something that is no widget") << false;
    QTest::newRow("to another program") << true;
}

void MenuFocusTest::theFocusThatWentMeanwhileIsGoneAfterwards()
{
    QFETCH(const bool, isElsewhere);
    QWidget panel;
    auto* text = new QLineEdit;
    (new QVBoxLayout(&panel))->addWidget(text);
    panel.show();
    QTRY_VERIFY(panel.isActiveWindow() && text->hasFocus());

    openContextMenu(makeContextMenu({ MenuAction{ QStringLiteral("entry"), true, [] {} } }), QPoint(20, 20), {});
    const QPointer<QWidget> menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    QWindow other;
    other.show();
    other.requestActivate();
    QTRY_COMPARE(QGuiApplication::focusWindow(), &other);
    if (isElsewhere) {
        other.destroy();
        QVERIFY(!QGuiApplication::focusWindow());
    }
    QVERIFY(panel.isActiveWindow());
    menu->close();
    QTRY_VERIFY(!menu);
    QTRY_VERIFY(!panel.isActiveWindow());
    QVERIFY(!text->hasFocus());
}

QTEST_MAIN(MenuFocusTest)
#include "MenuFocusTest.moc"
