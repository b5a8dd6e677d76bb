#include "HotKey.h"

#include "FakeGlobalShortcuts.h"

#include <QTest>

#include <memory>

using namespace nookle;

class HotKeyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // The first, since numbers are counted from the start of the program.
    void twoHotKeysHaveTheNumbersOneAndTwoAndIgnoreEachOthersPresses();
    void theShortcutIsRegisteredAsItIsGiven();
    void aPressWithoutAnIdentifierIsNotHandled();
    void aPressOfAnotherProgramsSignatureIsNotHandled();
    void afterItsReleasePressesReachNobody();
    void aShortcutThatIsTakenNeverFires();
};

void HotKeyTest::twoHotKeysHaveTheNumbersOneAndTwoAndIgnoreEachOthersPresses()
{
    FakeGlobalShortcuts shortcuts;
    int first = 0;
    int second = 0;
    const HotKey one(shortcuts, 2, 6400, [&] { ++first; });
    const HotKey two(shortcuts, 3, 6400, [&] { ++second; });
    QCOMPARE(one.id(), 1U);
    QCOMPARE(two.id(), 2U);
    QVERIFY(shortcuts.press({ HotKey::signature, 2 }));
    QCOMPARE(first, 0);
    QCOMPARE(second, 1);
    QVERIFY(shortcuts.press({ HotKey::signature, 1 }));
    QCOMPARE(first, 1);
    QCOMPARE(second, 1);
    QVERIFY(!shortcuts.press({ HotKey::signature, 3 }));
}

void HotKeyTest::theShortcutIsRegisteredAsItIsGiven()
{
    FakeGlobalShortcuts shortcuts;
    const HotKey hotKey(shortcuts, 2, 6400, [] {});
    const auto [shortcut, id] = shortcuts.registered.at(hotKey.id());
    QCOMPARE(shortcut.keyCode, 2U);
    QCOMPARE(shortcut.modifiers, 6400U);
    QCOMPARE(id.signature, 0x4e4f4f4bU);
}

void HotKeyTest::aPressWithoutAnIdentifierIsNotHandled()
{
    FakeGlobalShortcuts shortcuts;
    int presses = 0;
    const HotKey hotKey(shortcuts, 2, 6400, [&] { ++presses; });
    QVERIFY(!shortcuts.press({}));
    QCOMPARE(presses, 0);
}

void HotKeyTest::aPressOfAnotherProgramsSignatureIsNotHandled()
{
    FakeGlobalShortcuts shortcuts;
    const HotKey hotKey(shortcuts, 2, 6400, [] {});
    QVERIFY(!shortcuts.press({ HotKey::signature + 1, hotKey.id() }));
}

void HotKeyTest::afterItsReleasePressesReachNobody()
{
    FakeGlobalShortcuts shortcuts;
    int presses = 0;
    auto hotKey = std::make_unique<HotKey>(shortcuts, 2, 6400, [&] { ++presses; });
    const ShortcutId id{ HotKey::signature, hotKey->id() };
    hotKey.reset();
    QVERIFY(shortcuts.registered.empty());
    QVERIFY(!shortcuts.press(id));
    QCOMPARE(presses, 0);
}

void HotKeyTest::aShortcutThatIsTakenNeverFires()
{
    FakeGlobalShortcuts shortcuts;
    shortcuts.refuses = true;
    const HotKey hotKey(shortcuts, 2, 6400, [] {});
    QVERIFY(shortcuts.registered.empty());
}

QTEST_GUILESS_MAIN(HotKeyTest)
#include "HotKeyTest.moc"
