#include "X11GlobalShortcuts.h"

#include "CapturedLog.h"
#include "PrivateDesktop.h"
#include "Waiting.h"

#include <QGuiApplication>
#include <QTest>

#include <memory>

using namespace nookle;
using namespace nookle::e2e;

/// Several shortcuts at once, and other keys than the usual ones.
class X11ShortcutsTest : public QObject {
    Q_OBJECT

public:
    explicit X11ShortcutsTest(PrivateDesktop& desktop)
        : m_desktop(desktop)
    {
    }

private Q_SLOTS:
    void init() { m_shortcuts = std::make_unique<X11GlobalShortcuts>(); }
    void cleanup();

    void theSameKeyWithShiftIsAnotherShortcut_data();
    void theSameKeyWithShiftIsAnotherShortcut();
    void theOtherStaysWhenOneIsGivenUp();
    void theFirstIsNamedWhenAnotherProgramHoldsIt();
    void theFirstStaysWhenAnotherProgramHoldsTheSecond();
    void otherKeysThanLettersAreHeard_data();
    void otherKeysThanLettersAreHeard();
    void aKeyThatTheKeyboardLacksIsNamed();
    void withoutItsModifierAKeyIsLeftToOtherPrograms();
    void aKeyboardThatComesLaterHasTheShortcut();

private:
    static constexpr uint shift = 0xffe1;
    static constexpr auto controlAltSuper = Qt::CTRL | Qt::ALT | Qt::META;

    [[nodiscard]] std::unique_ptr<Cancellable> registerCounting(QKeyCombination keys, int& presses)
    {
        return m_shortcuts->registerShortcut(keys, QString(), [&presses] { ++presses; });
    }
    void press(const QList<uint>& keys);
    /// Leaves the keyboard without Super. Returns its usual modifiers.
    [[nodiscard]] auto takeSuperKey()
    {
        auto usual = m_desktop.screen().modifierKeys();
        auto withoutSuper = usual;
        withoutSuper[XCB_MAP_INDEX_4].clear();
        m_desktop.screen().setModifierKeys(withoutSuper);
        return usual;
    }

    PrivateDesktop& m_desktop;
    std::unique_ptr<X11GlobalShortcuts> m_shortcuts;
};

void X11ShortcutsTest::cleanup()
{
    m_shortcuts.reset();
    const xcb_keycode_t d = m_desktop.screen().keyFor('d');
    QVERIFY(waitFor([&] { return !m_desktop.screen().isShortcutHeld(d); }));
}

void X11ShortcutsTest::press(const QList<uint>& keys)
{
    for (const uint key : keys)
        m_desktop.screen().pressKey(key);
    for (const uint key : keys)
        m_desktop.screen().releaseKey(key);
}

void X11ShortcutsTest::theSameKeyWithShiftIsAnotherShortcut_data()
{
    QTest::addColumn<QList<uint>>("locks");
    QTest::newRow("no locks") << QList<uint>();
    QTest::newRow("Num Lock") << QList<uint>{ XScreen::numLock };
    QTest::newRow("Caps Lock") << QList<uint>{ XScreen::capsLock };
}

void X11ShortcutsTest::theSameKeyWithShiftIsAnotherShortcut()
{
    QFETCH(const QList<uint>, locks);
    int plain = 0;
    int withShift = 0;
    const auto first = registerCounting(QKeyCombination(controlAltSuper, Qt::Key_D), plain);
    const auto second = registerCounting(QKeyCombination(controlAltSuper | Qt::SHIFT, Qt::Key_D), withShift);
    QVERIFY(first && second);
    for (const uint lock : locks)
        press({ lock });
    press({ XScreen::control, XScreen::alt, XScreen::super, shift, 'd' });
    QVERIFY(waitFor([&] { return withShift == 1; }));
    QCOMPARE(plain, 0);
    press({ XScreen::control, XScreen::alt, XScreen::super, 'd' });
    QVERIFY(waitFor([&] { return plain == 1; }));
    QCOMPARE(withShift, 1);
    for (const uint lock : locks)
        press({ lock });
}

void X11ShortcutsTest::theOtherStaysWhenOneIsGivenUp()
{
    int plain = 0;
    int withShift = 0;
    const auto first = registerCounting(QKeyCombination(controlAltSuper, Qt::Key_D), plain);
    auto second = registerCounting(QKeyCombination(controlAltSuper | Qt::SHIFT, Qt::Key_D), withShift);
    second.reset();
    press({ XScreen::control, XScreen::alt, XScreen::super, shift, 'd' });
    press({ XScreen::control, XScreen::alt, XScreen::super, 'd' });
    QVERIFY(waitFor([&] { return plain == 1; }));
    QCOMPARE(withShift, 0);
}

void X11ShortcutsTest::theFirstIsNamedWhenAnotherProgramHoldsIt()
{
    X11GlobalShortcuts other;
    const QKeyCombination taken(Qt::META, Qt::Key_F5);
    const auto held = other.registerShortcut(taken, QString(), [] {});
    QVERIFY(held);
    QCOMPARE(m_shortcuts->wantedKeys(), QString());
    int presses = 0;
    CapturedLog log;
    QVERIFY(!registerCounting(taken, presses));
    const auto second = registerCounting(QKeyCombination(Qt::META | Qt::SHIFT, Qt::Key_F5), presses);
    QCOMPARE(m_shortcuts->boundKeys(), QString());
    QCOMPARE(m_shortcuts->wantedKeys(), QStringLiteral("Super+F5"));
    QCOMPARE(m_shortcuts->obstacle(), QStringLiteral("Another program may hold Super+F5."));
}

void X11ShortcutsTest::theFirstStaysWhenAnotherProgramHoldsTheSecond()
{
    X11GlobalShortcuts other;
    const QKeyCombination taken(controlAltSuper | Qt::SHIFT, Qt::Key_D);
    const auto held = other.registerShortcut(taken, QString(), [] {});
    QVERIFY(held);
    int plain = 0;
    int withShift = 0;
    const auto first = registerCounting(QKeyCombination(controlAltSuper, Qt::Key_D), plain);
    CapturedLog log;
    QVERIFY(!registerCounting(taken, withShift));
    QCOMPARE(log.lines(),
             QStringList{ QStringLiteral("Nookle: another program may hold the shortcut Ctrl+Alt+Shift+Super+D") });
    QCOMPARE(m_shortcuts->boundKeys(), QStringLiteral("Ctrl+Alt+Super+D"));
    QCOMPARE(m_shortcuts->obstacle(), QStringLiteral("Another program may hold Ctrl+Alt+Shift+Super+D."));
    press({ XScreen::control, XScreen::alt, XScreen::super, 'd' });
    QVERIFY(waitFor([&] { return plain == 1; }));
}

void X11ShortcutsTest::otherKeysThanLettersAreHeard_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<uint>("symbol");
    QTest::newRow("a letter") << Qt::Key_N << uint('n');
    QTest::newRow("a digit") << Qt::Key_4 << uint('4');
    QTest::newRow("a function key") << Qt::Key_F12 << 0xffc9U;
    QTest::newRow("space") << Qt::Key_Space << 0x20U;
    QTest::newRow("a key with a name") << Qt::Key_Insert << 0xff63U;
    QTest::newRow("a sign") << Qt::Key_Comma << uint(',');
}

void X11ShortcutsTest::otherKeysThanLettersAreHeard()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const uint, symbol);
    int presses = 0;
    const auto shortcut = registerCounting(QKeyCombination(Qt::CTRL, key), presses);
    QVERIFY(shortcut);
    press({ XScreen::control, symbol });
    QVERIFY(waitFor([&] { return presses == 1; }));
}

void X11ShortcutsTest::aKeyThatTheKeyboardLacksIsNamed()
{
    int presses = 0;
    CapturedLog log;
    const auto shortcut = registerCounting(QKeyCombination(Qt::CTRL, Qt::Key_Eacute), presses);
    QCOMPARE(m_shortcuts->boundKeys(), QString());
    QCOMPARE(log.lines(), QStringList{ QStringLiteral("Nookle: this keyboard has no keys for the shortcut Ctrl+É") });
    QVERIFY(m_shortcuts->obstacle().contains(QStringLiteral("Ctrl+É")));
}

void X11ShortcutsTest::withoutItsModifierAKeyIsLeftToOtherPrograms()
{
    int presses = 0;
    const auto shortcut = registerCounting(QKeyCombination(Qt::META, Qt::Key_A), presses);
    QVERIFY(shortcut);
    const auto usual = takeSuperKey();
    QVERIFY(waitFor([&] { return m_shortcuts->boundKeys().isEmpty(); }));
    press({ 'a' });
    m_desktop.screen().setModifierKeys(usual);
    QVERIFY(waitFor([&] { return m_shortcuts->boundKeys() == QStringLiteral("Super+A"); }));
    press({ XScreen::super, 'a' });
    QVERIFY(waitFor([&] { return presses > 0; }));
    QCOMPARE(presses, 1);
}

void X11ShortcutsTest::aKeyboardThatComesLaterHasTheShortcut()
{
    const auto usual = takeSuperKey();
    m_shortcuts = std::make_unique<X11GlobalShortcuts>();
    int presses = 0;
    CapturedLog log;
    const auto shortcut = registerCounting(QKeyCombination(Qt::META, Qt::Key_A), presses);
    QCOMPARE(m_shortcuts->boundKeys(), QString());
    m_desktop.screen().setModifierKeys(usual);
    QVERIFY(waitFor([&] { return m_shortcuts->boundKeys() == QStringLiteral("Super+A"); }));
    press({ XScreen::super, 'a' });
    QVERIFY(waitFor([&] { return presses == 1; }));
}

int main(int argc, char* argv[])
{
    const auto desktop = PrivateDesktop::tryCreate({ QSize(800, 600), QStringLiteral("openbox"), false });
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    X11ShortcutsTest test(*desktop);
    return QTest::qExec(&test, argc, argv);
}
#include "X11ShortcutsTest.moc"
