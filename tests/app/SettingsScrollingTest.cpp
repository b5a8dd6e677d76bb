#include "SettingsWindowController.h"

#include "FittingScrollArea.h"

#include "FakeFolderWatch.h"
#include "FakeGlobalShortcuts.h"
#include "FakeLoginItem.h"
#include "FakeUserDefaults.h"

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

using namespace nookle;

/// The settings window where its form is higher than the display.
class SettingsScrollingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFormThatFitsIsNotScrolled();
    void aFormThatFitsAgainIsNotScrolled();
    void theWindowIsNoHigherThanTheDisplay();
    void theControlWithTheKeyboardIsScrolledIntoView();
    void theWheelScrollsAndChangesNoSetting();

private:
    /// Texts of that size make the form as high as wanted.
    void open(int points);
    [[nodiscard]] QScrollBar& bar() const { return *m_window->findChild<QScrollArea*>()->verticalScrollBar(); }
    /// Whether the user sees the whole control.
    [[nodiscard]] bool isSeen(const QWidget& control) const
    {
        return control.visibleRegion().boundingRect() == control.rect();
    }

    const QFont m_font = QApplication::font();
    FakeUserDefaults m_defaults;
    AppSettings m_settings{ m_defaults };
    FakeLoginItem m_loginItem;
    FakeGlobalShortcuts m_shortcuts;
    FakeFolderWatch m_folders;
    std::unique_ptr<SettingsWindowController> m_controller;
    QDialog* m_window = nullptr;
};

namespace {

constexpr int smallText = 6;
constexpr int largeText = 16;

} // namespace

void SettingsScrollingTest::init()
{
    m_controller = std::make_unique<SettingsWindowController>(
        m_settings, m_loginItem, m_shortcuts, SettingsView::Abilities(),
        [] { return QUrl(QStringLiteral("file:///home/me/Pictures")); },
        DataFolderRow::Folder{ QUrl(QStringLiteral("file:///home/me/Nookle")), [](const QUrl&) {}, m_folders }, [] {});
}

void SettingsScrollingTest::cleanup()
{
    m_controller.reset();
    QApplication::setFont(m_font);
}

void SettingsScrollingTest::open(int points)
{
    QFont font = m_font;
    font.setPointSize(points);
    QApplication::setFont(font);
    m_controller->show();
    for (QWidget* each : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<QDialog*>(each))
            m_window = dialog;
    }
    QVERIFY(QTest::qWaitForWindowExposed(m_window));
}

void SettingsScrollingTest::aFormThatFitsIsNotScrolled()
{
    open(smallText);
    QCOMPARE(bar().maximum(), 0);
    QVERIFY(!bar().isVisible());
    QCOMPARE(m_window->width(), 440);
}

// Its lines break anew beside the bar, and are more there.
void SettingsScrollingTest::aFormThatFitsAgainIsNotScrolled()
{
    constexpr int manyWords = 200;
    auto* text = new QLabel(QStringLiteral("word ").repeated(manyWords));
    text->setWordWrap(true);
    auto* form = new QWidget;
    (new QVBoxLayout(form))->addWidget(text);
    FittingScrollArea area(form);
    const QSize whole = area.sizeHint();
    area.resize(whole.width(), whole.height() / 2);
    area.show();
    QVERIFY(QTest::qWaitForWindowExposed(&area));
    QVERIFY(area.verticalScrollBar()->isVisible());
    area.resize(whole);
    QVERIFY(!area.verticalScrollBar()->isVisible());
    QCOMPARE(form->size(), whole);
}

void SettingsScrollingTest::theWindowIsNoHigherThanTheDisplay()
{
    open(largeText);
    QVERIFY(bar().isVisible());
    QVERIFY(m_window->height() < m_window->screen()->availableGeometry().height());
    // The bar stands beside the form.
    const QWidget* form = m_window->findChild<QScrollArea*>()->widget();
    QCOMPARE(form->width(), form->sizeHint().width());
    QCOMPARE(m_window->width(), form->width() + bar().width());
}

void SettingsScrollingTest::theControlWithTheKeyboardIsScrolledIntoView()
{
    open(largeText);
    const auto* last = m_window->findChildren<QPushButton*>().constLast();
    QVERIFY(!isSeen(*last));
    QTRY_VERIFY(m_window->isActiveWindow());
    constexpr int controls = 12;
    for (int step = 0; step < controls && !last->hasFocus(); ++step)
        QTest::keyClick(m_window->focusWidget(), Qt::Key_Tab);
    QVERIFY(last->hasFocus());
    QTRY_VERIFY(isSeen(*last));
}

void SettingsScrollingTest::theWheelScrollsAndChangesNoSetting()
{
    open(largeText);
    auto* picker = m_window->findChild<QComboBox*>();
    const auto before = m_settings.expiry();
    const QPoint centre = picker->rect().center();
    QWheelEvent down(centre, picker->mapToGlobal(centre), {}, QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                     Qt::NoScrollPhase, false);
    QApplication::sendEvent(picker, &down);
    QCOMPARE(m_settings.expiry(), before);
    // The toolkit hands on to the form what a control does not take.
    QVERIFY(!down.isAccepted());
    QApplication::sendEvent(m_window->findChild<QScrollArea*>()->viewport(), &down);
    QVERIFY(bar().value() > 0);
}

QTEST_MAIN(SettingsScrollingTest)
#include "SettingsScrollingTest.moc"
