#include "SettingsWindowController.h"

#include "FakeFolderWatch.h"
#include "FakeGlobalShortcuts.h"
#include "FakeLoginItem.h"
#include "FakeUserDefaults.h"
#include "FileUrl.h"
#include "ProgramVersion.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <memory>
#include <optional>

using namespace nookle;

namespace {

/// What a control says to whoever reads the window; none for what says nothing by its nature.
[[nodiscard]] std::optional<QString> textOf(const QWidget& widget)
{
    if (const auto* section = qobject_cast<const QGroupBox*>(&widget))
        return section->title();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return button->text();
    const auto* picker = qobject_cast<const QComboBox*>(&widget);
    QStringList choices;
    for (int index = 0; picker && index < picker->count(); ++index)
        choices.append(picker->itemText(index));
    if (picker)
        return choices.join(QStringLiteral(" | "));
    const auto* label = qobject_cast<const QLabel*>(&widget);
    return label ? std::optional(label->text().remove(QChar(0x200b))) : std::nullopt;
}

/// Adds the texts that are shown in `layout`, from the first to the last.
void collectTexts(const QLayout& layout, QStringList& texts)
{
    for (int index = 0; index < layout.count(); ++index) {
        QLayoutItem* item = layout.itemAt(index);
        const QWidget* widget = item->widget();
        if (widget && !widget->isVisible())
            continue;
        if (const auto text = widget ? textOf(*widget) : std::nullopt)
            texts.append(*text);
        const auto* scrolled = qobject_cast<const QScrollArea*>(widget);
        if (scrolled)
            widget = scrolled->widget();
        if (const QLayout* inner = widget ? widget->layout() : item->layout())
            collectTexts(*inner, texts);
    }
}

} // namespace

class SettingsWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void openingTwiceMakesOneWindow();
    void theWindowIsAsWideAsItsFormAndCannotBeResized();
    void theWindowStandsInTheMiddleOfTheDisplay();
    void closingHidesTheWindowAndTheNextRequestShowsTheSame();
    void theSectionsStandInTheirOrder();
    void everyTextStandsInItsPlace();
    void theFormShowsTheSettings();
    void eachControlWritesThroughAtOnce();
    void aChangeMadeElsewhereIsShown();
    void withoutCollectingTheMoveSwitchIsOffLimitsButKeepsItsValue();
    void theKeysThatAreBoundAreShownAndFollowed();
    void whyNoKeysAreBoundIsSaid();
    void theDesktopCanBeAskedAgainWhereThatHelps();
    void theShortcutMayChangeWithoutTheWindow();
    void theFolderIsShownAsItIsNow();
    void aPathIsShownAsItIsAndNeverWidensTheWindow();
    void theButtonOpensTheFolderOfTheShelfOnceItIsThere();
    void theButtonFollowsTheFolderThatComesWhileTheWindowIsOpen();
    void noLabelTakesItsTextForMarkup();
    void controlCharactersInAPathAreNotShown();

    void anEnabledLoginItemIsShownAsOn();
    void aLoginItemThatTheDesktopCannotFindIsShownAsOff();
    void switchingOnRegistersAndSwitchingOffUnregisters();
    void whenApprovalIsDemandedTheSwitchStaysOnAndTheHintAppears();
    void anItemThatAwaitsApprovalIsShownAsOffWithTheHint();
    void switchingOnAnItemThatAwaitsApprovalRegistersItAgain();
    void aFailureIsShownInRedAndTheSwitchGoesBack();
    void theNextSuccessTakesTheErrorAway();
    void theButtonOpensTheDesktopsSettings();
    void theWindowGrowsWithARowThatAppears();
    void theButtonSaysThatTheDiagnosticsAreCopied();

private:
    void open();
    [[nodiscard]] QDialog* window() const;
    [[nodiscard]] QCheckBox& toggle(const QString& title) const;
    [[nodiscard]] QCheckBox& launchAtLogin() const { return toggle(QStringLiteral("Open at login")); }
    /// The label with exactly that text, as long as it can be seen.
    [[nodiscard]] QLabel* visibleLabel(const QString& text) const;
    [[nodiscard]] bool isHintShown() const;
    /// The button, as long as it can be seen.
    [[nodiscard]] QPushButton* askAgain() const;

    std::unique_ptr<FakeUserDefaults> m_defaults;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<FakeLoginItem> m_loginItem;
    std::unique_ptr<FakeGlobalShortcuts> m_shortcuts;
    QTemporaryDir m_dataFolder;
    FakeFolderWatch m_folders;
    QList<QUrl> m_opened;
    std::unique_ptr<SettingsWindowController> m_controller;
    QUrl m_folder;
    int m_copies = 0;
};

void SettingsWindowTest::init()
{
    m_folder = QUrl(QStringLiteral("file:///home/me/Pictures"));
    m_opened.clear();
    m_copies = 0;
    m_defaults = std::make_unique<FakeUserDefaults>();
    m_settings = std::make_unique<AppSettings>(*m_defaults);
    m_loginItem = std::make_unique<FakeLoginItem>();
    m_shortcuts = std::make_unique<FakeGlobalShortcuts>();
    m_controller = std::make_unique<SettingsWindowController>(
        *m_settings, *m_loginItem, *m_shortcuts, SettingsView::Abilities(), [this] { return m_folder; },
        DataFolderRow::Folder{ fileUrl(QFile::encodeName(m_dataFolder.path())),
                               [this](const QUrl& folder) { m_opened.append(folder); }, m_folders },
        [this] { ++m_copies; });
}

void SettingsWindowTest::cleanup()
{
    m_controller.reset();
}

void SettingsWindowTest::open()
{
    m_controller->show();
    QVERIFY(window());
    QVERIFY(QTest::qWaitForWindowExposed(window()));
}

QDialog* SettingsWindowTest::window() const
{
    QDialog* found = nullptr;
    for (QWidget* each : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<QDialog*>(each)) {
            Q_ASSERT(!found);
            found = dialog;
        }
    }
    return found;
}

QCheckBox& SettingsWindowTest::toggle(const QString& title) const
{
    const auto toggles = window()->findChildren<QCheckBox*>();
    return **std::find_if(toggles.begin(), toggles.end(), [&](const QCheckBox* each) { return each->text() == title; });
}

QLabel* SettingsWindowTest::visibleLabel(const QString& text) const
{
    for (QLabel* label : window()->findChildren<QLabel*>()) {
        if (label->isVisible() && label->text().remove(QChar(0x200b)) == text)
            return label;
    }
    return nullptr;
}

bool SettingsWindowTest::isHintShown() const
{
    const auto buttons = window()->findChildren<QPushButton*>();
    const bool hasButton = std::any_of(buttons.begin(), buttons.end(), [](const QPushButton* button) {
        return button->text() == QLatin1String("Open System Settings") && button->isVisible();
    });
    const bool hasText = visibleLabel(QStringLiteral("Allow Nookle under Login Items in System Settings.")) != nullptr;
    return hasButton && hasText;
}

void SettingsWindowTest::openingTwiceMakesOneWindow()
{
    open();
    QDialog* first = window();
    m_controller->show();
    QCOMPARE(window(), first);
    QVERIFY(first->isVisible());
    QTRY_VERIFY(first->isActiveWindow());
}

void SettingsWindowTest::theWindowIsAsWideAsItsFormAndCannotBeResized()
{
    open();
    QCOMPARE(window()->windowTitle(), QStringLiteral("Nookle Settings"));
    QVERIFY(!window()->windowIcon().isNull());
    QCOMPARE(window()->width(), 440);
    QCOMPARE(window()->minimumSize(), window()->maximumSize());
    QVERIFY2(window()->windowType() == Qt::Window, "some desktops keep a dialogue with the panel, above all windows");
    QVERIFY(!(window()->windowFlags() & Qt::WindowMinMaxButtonsHint));
    QVERIFY(window()->windowFlags() & Qt::WindowCloseButtonHint);
}

void SettingsWindowTest::theWindowStandsInTheMiddleOfTheDisplay()
{
    open();
    // The frame is not known before the window shows.
    constexpr int frame = 20;
    const QPoint away = window()->geometry().center() - window()->screen()->availableGeometry().center();
    QVERIFY2(away.manhattanLength() <= frame, qPrintable(QStringLiteral("%1, %2").arg(away.x()).arg(away.y())));
}

void SettingsWindowTest::closingHidesTheWindowAndTheNextRequestShowsTheSame()
{
    open();
    QDialog* first = window();
    first->close();
    QVERIFY(!first->isVisible());
    m_controller->show();
    QCOMPARE(window(), first);
    QVERIFY(first->isVisible());
}

void SettingsWindowTest::theSectionsStandInTheirOrder()
{
    open();
    auto sections = window()->findChildren<QGroupBox*>();
    std::sort(sections.begin(), sections.end(),
              [](const auto* one, const auto* other) { return one->y() < other->y(); });
    QStringList titles;
    for (const QGroupBox* section : sections)
        titles.append(section->title());
    const QStringList expected{ QStringLiteral("General"), QStringLiteral("Shelf"), QStringLiteral("Screenshots") };
    QCOMPARE(titles, expected);
    QVERIFY(visibleLabel(QStringLiteral("⌃⌥⌘D")));
}

void SettingsWindowTest::everyTextStandsInItsPlace()
{
    m_loginItem->current = LoginItem::Status::requiresApproval;
    open();
    QCOMPARE(window()->windowTitle(), QStringLiteral("Nookle Settings"));
    QStringList texts;
    collectTexts(*window()->layout(), texts);
    const QStringList expected{
        QStringLiteral("General"),
        QStringLiteral("Open at login"),
        QStringLiteral("Allow Nookle under Login Items in System Settings."),
        QStringLiteral("Open System Settings"),
        QStringLiteral("Shelf"),
        QStringLiteral("Show when dragging to the edge"),
        QStringLiteral("Drag something to the right edge of the screen and the shelf slides in automatically."),
        QStringLiteral("Reserve space while the shelf is kept open"),
        QStringLiteral("Maximised windows then end at the shelf instead of reaching below it."),
        QStringLiteral("Remove items"),
        QStringLiteral("Never | After 1 hour | After 24 hours | After 1 week"),
        QStringLiteral("Pinned items always stay. Copies such as images go to the Trash."),
        QStringLiteral("Show and hide"),
        QStringLiteral("⌃⌥⌘D"),
        QString(QStringLiteral("Files are kept in ") + m_dataFolder.path()),
        QStringLiteral("Open Folder"),
        QStringLiteral("Screenshots"),
        QStringLiteral("Add new screenshots to the shelf"),
        QStringLiteral("Folder: /home/me/Pictures"),
        QStringLiteral("Move them from the desktop to the shelf"),
        QStringLiteral("Otherwise the screenshot stays where it is and the shelf only refers to it."),
        QString(QStringLiteral("Version ") + programVersion()),
        QStringLiteral("Copy Diagnostics"),
    };
    QCOMPARE(texts.join(QLatin1Char('\n')), expected.join(QLatin1Char('\n')));
}

void SettingsWindowTest::theFormShowsTheSettings()
{
    m_settings->setExpiry(AppSettings::Expiry::week);
    m_settings->setMoveScreenshots(true);
    open();
    QVERIFY(toggle(QStringLiteral("Show when dragging to the edge")).isChecked());
    QVERIFY(!toggle(QStringLiteral("Add new screenshots to the shelf")).isChecked());
    QVERIFY(toggle(QStringLiteral("Move them from the desktop to the shelf")).isChecked());
    const auto* picker = window()->findChild<QComboBox*>();
    QCOMPARE(picker->currentText(), QStringLiteral("After 1 week"));
    QStringList choices;
    for (int index = 0; index < picker->count(); ++index)
        choices.append(picker->itemText(index));
    const QStringList expected{ QStringLiteral("Never"), QStringLiteral("After 1 hour"),
                                QStringLiteral("After 24 hours"), QStringLiteral("After 1 week") };
    QCOMPARE(choices, expected);
}

void SettingsWindowTest::eachControlWritesThroughAtOnce()
{
    open();
    toggle(QStringLiteral("Show when dragging to the edge")).click();
    QCOMPARE(m_defaults->stored.value(QStringLiteral("autoExpandOnDrag")), QVariant(false));
    toggle(QStringLiteral("Reserve space while the shelf is kept open")).click();
    QCOMPARE(m_defaults->stored.value(QStringLiteral("reserveSpace")), QVariant(true));
    toggle(QStringLiteral("Add new screenshots to the shelf")).click();
    QCOMPARE(m_defaults->stored.value(QStringLiteral("collectScreenshots")), QVariant(true));
    toggle(QStringLiteral("Move them from the desktop to the shelf")).click();
    QCOMPARE(m_defaults->stored.value(QStringLiteral("moveScreenshots")), QVariant(true));
    auto* picker = window()->findChild<QComboBox*>();
    picker->setFocus();
    QTest::keyClick(picker, Qt::Key_Up);
    QCOMPARE(m_defaults->stored.value(QStringLiteral("expiry")), QVariant(3600LL));
}

void SettingsWindowTest::aChangeMadeElsewhereIsShown()
{
    open();
    m_settings->setAutoExpandOnDrag(false);
    m_settings->setExpiry(AppSettings::Expiry::never);
    QVERIFY(!toggle(QStringLiteral("Show when dragging to the edge")).isChecked());
    QCOMPARE(window()->findChild<QComboBox*>()->currentText(), QStringLiteral("Never"));
}

void SettingsWindowTest::withoutCollectingTheMoveSwitchIsOffLimitsButKeepsItsValue()
{
    m_settings->setMoveScreenshots(true);
    open();
    QCheckBox& moves = toggle(QStringLiteral("Move them from the desktop to the shelf"));
    QVERIFY(!moves.isEnabled());
    QVERIFY(moves.isChecked());
    QCheckBox& collects = toggle(QStringLiteral("Add new screenshots to the shelf"));
    collects.click();
    QVERIFY(moves.isEnabled());
    collects.click();
    QVERIFY(!moves.isEnabled());
    QVERIFY(moves.isChecked());
    QVERIFY(m_settings->moveScreenshots());
}

QPushButton* SettingsWindowTest::askAgain() const
{
    for (QPushButton* button : window()->findChildren<QPushButton*>()) {
        if (button->isVisible() && button->text() == QLatin1String("Ask Again"))
            return button;
    }
    return nullptr;
}

void SettingsWindowTest::theKeysThatAreBoundAreShownAndFollowed()
{
    m_shortcuts->bound = QStringLiteral("Ctrl+Alt+Super+D");
    open();
    QVERIFY(visibleLabel(QStringLiteral("Ctrl+Alt+Super+D")));
    QVERIFY(!visibleLabel(QStringLiteral("⌃⌥⌘D")));
    m_shortcuts->bound = QStringLiteral("Press <b>F12</b>\nor");
    Q_EMIT m_shortcuts->changed();
    const QLabel* keys = visibleLabel(QStringLiteral("Press <b>F12</b> or"));
    QVERIFY(keys);
    QCOMPARE(keys->accessibleName(), keys->text());
    QVERIFY(keys->toolTip().contains(keys->text().toHtmlEscaped()));
    m_shortcuts->bound = QStringLiteral("many keys ").repeated(20);
    Q_EMIT m_shortcuts->changed();
    QCOMPARE(window()->width(), 440);
    m_shortcuts->wanted = QStringLiteral("Super+F5");
    Q_EMIT m_shortcuts->changed();
    QVERIFY(!visibleLabel(m_shortcuts->wanted));
    m_shortcuts->bound.clear();
    Q_EMIT m_shortcuts->changed();
    QVERIFY(!visibleLabel(m_shortcuts->wanted));
    const QString marked = QStringLiteral("Wanted: Super+F5");
    QVERIFY(visibleLabel(marked));
    QCOMPARE(visibleLabel(marked)->accessibleName(), marked);
    m_shortcuts->wanted.clear();
    Q_EMIT m_shortcuts->changed();
    keys = visibleLabel(QStringLiteral("⌃⌥⌘D"));
    QVERIFY(keys);
    QCOMPARE(keys->accessibleName(), QStringLiteral("Control, Alt, Super and D"));
}

void SettingsWindowTest::whyNoKeysAreBoundIsSaid()
{
    open();
    const int height = window()->height();
    m_shortcuts->reason = QStringLiteral("Another program has them.");
    Q_EMIT m_shortcuts->changed();
    QVERIFY(visibleLabel(m_shortcuts->reason));
    QCOMPARE(visibleLabel(QStringLiteral("⌃⌥⌘D"))->accessibleDescription(), m_shortcuts->reason);
    QTRY_VERIFY(window()->height() > height);
    QCOMPARE(window()->width(), 440);
    m_shortcuts->reason = QStringLiteral("Bind keys to: call /org/nookle");
    Q_EMIT m_shortcuts->changed();
    QCOMPARE(visibleLabel(m_shortcuts->reason)->text(), m_shortcuts->reason);
    m_shortcuts->reason.clear();
    Q_EMIT m_shortcuts->changed();
    QVERIFY(!visibleLabel(QStringLiteral("Another program has them.")));
    QTRY_COMPARE(window()->height(), height);
}

void SettingsWindowTest::theDesktopCanBeAskedAgainWhereThatHelps()
{
    open();
    QVERIFY(!askAgain());
    m_shortcuts->reason = QStringLiteral("You have declined.");
    m_shortcuts->mayBeAsked = true;
    Q_EMIT m_shortcuts->changed();
    QVERIFY(askAgain());
    askAgain()->click();
    QCOMPARE(m_shortcuts->timesAsked, 1);
    m_shortcuts->mayBeAsked = false;
    Q_EMIT m_shortcuts->changed();
    QVERIFY(!askAgain());
}

void SettingsWindowTest::theShortcutMayChangeWithoutTheWindow()
{
    open();
    m_controller.reset();
    Q_EMIT m_shortcuts->changed();
}

void SettingsWindowTest::theFolderIsShownAsItIsNow()
{
    open();
    QVERIFY(visibleLabel(QStringLiteral("Folder: /home/me/Pictures")));
    window()->close();
    m_folder = QUrl(QStringLiteral("file:///home/me/My%20shots"));
    m_controller->show();
    QVERIFY(visibleLabel(QStringLiteral("Folder: /home/me/My shots")));
    QCOMPARE(toggle(QStringLiteral("Add new screenshots to the shelf")).accessibleDescription(),
             QStringLiteral("Folder: /home/me/My shots"));
}

void SettingsWindowTest::aPathIsShownAsItIsAndNeverWidensTheWindow()
{
    const QString path =
        QStringLiteral("/home/me/<b>bold</b>&amp;") + QStringLiteral("/a-rather-long-name").repeated(12);
    m_folder = QUrl::fromLocalFile(path);
    open();
    QVERIFY(visibleLabel(QString(QStringLiteral("Folder: ") + path)));
    QCOMPARE(window()->width(), 440);
}

void SettingsWindowTest::theButtonOpensTheFolderOfTheShelfOnceItIsThere()
{
    const QString path = m_dataFolder.path();
    QVERIFY(QDir().rmdir(path));
    open();
    auto* button = window()->findChild<DataFolderRow*>()->findChild<QPushButton*>();
    QVERIFY(!button->isEnabled());
    QVERIFY(m_opened.isEmpty());
    window()->close();
    QVERIFY(QDir().mkpath(path));
    open();
    QVERIFY(button->isEnabled());
    button->click();
    QCOMPARE(m_opened, QList<QUrl>{ fileUrl(QFile::encodeName(path)) });
}

void SettingsWindowTest::theButtonFollowsTheFolderThatComesWhileTheWindowIsOpen()
{
    const QString path = m_dataFolder.path();
    const QUrl above = fileUrl(QFile::encodeName(QFileInfo(path).path()));
    m_folders.addFolder(above);
    QVERIFY(QDir().rmdir(path));
    open();
    const auto* button = window()->findChild<DataFolderRow*>()->findChild<QPushButton*>();
    m_folders.addEntry(above, "something else");
    QVERIFY(!button->isEnabled());
    QVERIFY(QDir().mkpath(path));
    m_folders.addEntry(above, "Nookle");
    QVERIFY(button->isEnabled());
    window()->close();
    QCOMPARE(m_folders.subscriptions(), std::size_t{ 0 });
    // There is nothing more to wait for.
    open();
    QCOMPARE(m_folders.subscriptions(), std::size_t{ 0 });
}

void SettingsWindowTest::noLabelTakesItsTextForMarkup()
{
    open();
    const auto labels = window()->findChildren<QLabel*>();
    QVERIFY(labels.size() > 5);
    for (const QLabel* label : labels)
        QVERIFY2(label->textFormat() == Qt::PlainText, qPrintable(label->text()));
}

void SettingsWindowTest::controlCharactersInAPathAreNotShown()
{
    m_folder = QUrl(QStringLiteral("file:///home/me/a%E2%80%AEb%0Ac"));
    open();
    QVERIFY(visibleLabel(QStringLiteral("Folder: /home/me/ab c")));
}

void SettingsWindowTest::anEnabledLoginItemIsShownAsOn()
{
    m_loginItem->current = LoginItem::Status::enabled;
    open();
    QVERIFY(launchAtLogin().isChecked());
    QVERIFY(!isHintShown());
    QCOMPARE(m_loginItem->registrations, 0);
}

void SettingsWindowTest::aLoginItemThatTheDesktopCannotFindIsShownAsOff()
{
    m_loginItem->current = LoginItem::Status::notFound;
    open();
    QVERIFY(!launchAtLogin().isChecked());
    QVERIFY(!isHintShown());
}

void SettingsWindowTest::switchingOnRegistersAndSwitchingOffUnregisters()
{
    open();
    launchAtLogin().click();
    QVERIFY(launchAtLogin().isChecked());
    QCOMPARE(m_loginItem->current, LoginItem::Status::enabled);
    launchAtLogin().click();
    QVERIFY(!launchAtLogin().isChecked());
    QCOMPARE(m_loginItem->current, LoginItem::Status::notRegistered);
    QCOMPARE(m_loginItem->registrations, 1);
    QCOMPARE(m_loginItem->unregistrations, 1);
}

void SettingsWindowTest::whenApprovalIsDemandedTheSwitchStaysOnAndTheHintAppears()
{
    m_loginItem->demandsApproval = true;
    open();
    QVERIFY(!isHintShown());
    launchAtLogin().click();
    QVERIFY(launchAtLogin().isChecked());
    QVERIFY(isHintShown());
}

void SettingsWindowTest::anItemThatAwaitsApprovalIsShownAsOffWithTheHint()
{
    m_loginItem->current = LoginItem::Status::requiresApproval;
    open();
    QVERIFY(!launchAtLogin().isChecked());
    QVERIFY(isHintShown());
    const QLabel* hint = visibleLabel(QStringLiteral("Allow Nookle under Login Items in System Settings."));
    QCOMPARE(hint->foregroundRole(), QPalette::PlaceholderText);
}

void SettingsWindowTest::switchingOnAnItemThatAwaitsApprovalRegistersItAgain()
{
    m_loginItem->current = LoginItem::Status::requiresApproval;
    m_loginItem->demandsApproval = true;
    open();
    launchAtLogin().click();
    QCOMPARE(m_loginItem->registrations, 1);
    QVERIFY(launchAtLogin().isChecked());
    QVERIFY(isHintShown());
}

void SettingsWindowTest::aFailureIsShownInRedAndTheSwitchGoesBack()
{
    m_loginItem->refusal = QStringLiteral("No room for <b>that</b>");
    open();
    launchAtLogin().click();
    QVERIFY(!launchAtLogin().isChecked());
    const QLabel* error = visibleLabel(QStringLiteral("No room for <b>that</b>"));
    QVERIFY(error);
    QCOMPARE(error->textFormat(), Qt::PlainText);
    const QColor color = error->palette().color(error->foregroundRole());
    QVERIFY(color.red() > 150 && color.green() < 100 && color.blue() < 100);
    QCOMPARE(m_loginItem->registrations, 1);
    QCOMPARE(m_loginItem->unregistrations, 0);
}

void SettingsWindowTest::theNextSuccessTakesTheErrorAway()
{
    m_loginItem->refusal = QStringLiteral("No room");
    open();
    launchAtLogin().click();
    QVERIFY(visibleLabel(QStringLiteral("No room")));
    m_loginItem->refusal.clear();
    launchAtLogin().click();
    QVERIFY(launchAtLogin().isChecked());
    QVERIFY(!visibleLabel(QStringLiteral("No room")));
}

void SettingsWindowTest::theButtonOpensTheDesktopsSettings()
{
    m_loginItem->current = LoginItem::Status::requiresApproval;
    open();
    window()->findChild<QPushButton*>()->click();
    QCOMPARE(m_loginItem->openedSettings, 1);
}

void SettingsWindowTest::theWindowGrowsWithARowThatAppears()
{
    m_loginItem->demandsApproval = true;
    open();
    const int before = window()->height();
    launchAtLogin().click();
    QTRY_VERIFY(window()->height() > before);
    const int after = window()->height();
    m_loginItem->demandsApproval = false;
    m_loginItem->current = LoginItem::Status::enabled;
    launchAtLogin().click();
    QTRY_VERIFY(window()->height() < after);
}

void SettingsWindowTest::theButtonSaysThatTheDiagnosticsAreCopied()
{
    open();
    auto* button = window()->findChildren<QPushButton*>().last();
    QCOMPARE(button->text(), QStringLiteral("Copy Diagnostics"));
    QCOMPARE(m_copies, 0);
    button->click();
    QCOMPARE(m_copies, 1);
    QCOMPARE(button->text(), QStringLiteral("Copied"));
    window()->close();
    m_controller->show();
    QCOMPARE(button->text(), QStringLiteral("Copy Diagnostics"));
}

QTEST_MAIN(SettingsWindowTest)
#include "SettingsWindowTest.moc"
