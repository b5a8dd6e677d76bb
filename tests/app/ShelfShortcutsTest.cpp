#include "ShelfShortcuts.h"

#include "CapturedLog.h"
#include "FakeGlobalShortcuts.h"
#include "FakeUserDefaults.h"
#include "PlainText.h"

#include <QTest>

using namespace nookle;

class ShelfShortcutsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theKeysShowAndHideAndWithShiftGiveTheFocus();
    void eachOfTheTwoDoesItsOwn();
    void theSettingsNameOtherKeys_data();
    void theSettingsNameOtherKeys();
    void whatCannotBeAShortcutIsLoggedOnceAndTheUsualKeysStay_data();
    void whatCannotBeAShortcutIsLoggedOnceAndTheUsualKeysStay();
    void withTheirEndBothAreFree();

private:
    static constexpr auto controlAltSuper = Qt::CTRL | Qt::ALT | Qt::META;
};

void ShelfShortcutsTest::theKeysShowAndHideAndWithShiftGiveTheFocus()
{
    FakeGlobalShortcuts shortcuts;
    const FakeUserDefaults settings;
    CapturedLog log;
    const ShelfShortcuts both(shortcuts, settings, { [] {}, [] {} });
    QCOMPARE(shortcuts.registered.size(), std::size_t{ 2 });
    const auto& toggle = shortcuts.registered.at(1);
    const auto& focus = shortcuts.registered.at(2);
    QCOMPARE(toggle.keys, QKeyCombination(controlAltSuper, Qt::Key_D));
    QCOMPARE(toggle.description, QStringLiteral("Show or hide the shelf"));
    QCOMPARE(focus.keys, QKeyCombination(controlAltSuper | Qt::SHIFT, Qt::Key_D));
    QCOMPARE(focus.description, QStringLiteral("Show the shelf with the keyboard focus"));
    QCOMPARE(log.lines(), QStringList());
}

void ShelfShortcutsTest::eachOfTheTwoDoesItsOwn()
{
    FakeGlobalShortcuts shortcuts;
    const FakeUserDefaults settings;
    QStringList done;
    const ShelfShortcuts both(
        shortcuts, settings,
        { [&] { done.append(QStringLiteral("toggle")); }, [&] { done.append(QStringLiteral("focus")); } });
    shortcuts.registered.at(2).pressed();
    QCOMPARE(done, QStringList{ QStringLiteral("focus") });
    shortcuts.registered.at(1).pressed();
    QCOMPARE(done.last(), QStringLiteral("toggle"));
}

void ShelfShortcutsTest::theSettingsNameOtherKeys_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QKeyCombination>("keys");
    QTest::newRow("the usual ones") << "Ctrl+Alt+Super+D" << QKeyCombination(controlAltSuper, Qt::Key_D);
    QTest::newRow("a letter") << "Super+N" << QKeyCombination(Qt::META, Qt::Key_N);
    QTest::newRow("a digit") << "Ctrl+Alt+4" << QKeyCombination(Qt::CTRL | Qt::ALT, Qt::Key_4);
    QTest::newRow("a function key") << "Ctrl+F12" << QKeyCombination(Qt::CTRL, Qt::Key_F12);
    QTest::newRow("a comma") << "Ctrl+," << QKeyCombination(Qt::CTRL, Qt::Key_Comma);
    QTest::newRow("a key with a name") << "Alt+Space" << QKeyCombination(Qt::ALT, Qt::Key_Space);
    QTest::newRow("small letters and spaces")
        << " control + meta+d " << QKeyCombination(Qt::CTRL | Qt::META, Qt::Key_D);
}

void ShelfShortcutsTest::theSettingsNameOtherKeys()
{
    QFETCH(const QString, text);
    QFETCH(const QKeyCombination, keys);
    FakeGlobalShortcuts shortcuts;
    FakeUserDefaults settings;
    settings.stored.insert(QStringLiteral("shortcut"), text);
    CapturedLog log;
    const ShelfShortcuts both(shortcuts, settings, { [] {}, [] {} });
    QCOMPARE(shortcuts.registered.at(1).keys, keys);
    QCOMPARE(shortcuts.registered.at(2).keys,
             QKeyCombination(keys.keyboardModifiers() | Qt::ShiftModifier, keys.key()));
    QCOMPARE(log.lines(), QStringList());
}

void ShelfShortcutsTest::whatCannotBeAShortcutIsLoggedOnceAndTheUsualKeysStay_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << "";
    QTest::newRow("modifiers alone") << "Ctrl+Alt";
    QTest::newRow("a key alone") << "D";
    QTest::newRow("a key that types with Shift alone") << "Shift+D";
    QTest::newRow("the keys of the other shortcut") << "Ctrl+Shift+D";
    QTest::newRow("an unknown modifier") << "Hyper+D";
    QTest::newRow("an unknown key") << "Ctrl+Nookle";
    QTest::newRow("two keys") << "Ctrl+A+B";
    QTest::newRow("two combinations") << "Ctrl+A, Ctrl+B";
    QTest::newRow("a plus too many") << "Ctrl++D";
    QTest::newRow("one modifier") << "Ctrl";
    QTest::newRow("pluses") << "+++";
    QTest::newRow("a name that no key has") << QStringLiteral("Ctrl+\u2318\U0001F4A9");
    QTest::newRow("ten thousand letters") << QString(10'000, QLatin1Char('D'));
    QTest::newRow("ten thousand modifiers")
        << QString(QStringLiteral("Ctrl+").repeated(10'000) + QStringLiteral("Ctrl"));
}

void ShelfShortcutsTest::whatCannotBeAShortcutIsLoggedOnceAndTheUsualKeysStay()
{
    QFETCH(const QString, text);
    FakeGlobalShortcuts shortcuts;
    FakeUserDefaults settings;
    settings.stored.insert(QStringLiteral("shortcut"), text);
    CapturedLog log;
    const ShelfShortcuts both(shortcuts, settings, { [] {}, [] {} });
    QCOMPARE(shortcuts.registered.at(1).keys, QKeyCombination(controlAltSuper, Qt::Key_D));
    QCOMPARE(shortcuts.registered.at(2).keys, QKeyCombination(controlAltSuper | Qt::SHIFT, Qt::Key_D));
    QCOMPARE(
        log.lines(),
        QStringList{ QStringLiteral("Nookle: the setting \"shortcut\" needs Ctrl, Alt or Super and one key, without "
                                    "Shift, not \"%1\"")
                         .arg(shownText(text)) });
    QVERIFY(log.lines().first().size() < 500);
}

void ShelfShortcutsTest::withTheirEndBothAreFree()
{
    FakeGlobalShortcuts shortcuts;
    const FakeUserDefaults settings;
    auto both = std::make_unique<ShelfShortcuts>(shortcuts, settings, ShelfShortcuts::Actions{ [] {}, [] {} });
    QCOMPARE(shortcuts.registered.size(), std::size_t{ 2 });
    both.reset();
    QVERIFY(shortcuts.registered.empty());
}

QTEST_GUILESS_MAIN(ShelfShortcutsTest)
#include "ShelfShortcutsTest.moc"
