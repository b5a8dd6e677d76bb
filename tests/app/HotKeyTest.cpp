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
    void theKeysAreThoseOfTheNumbers_data();
    void theKeysAreThoseOfTheNumbers();
    void afterItsReleasePressesReachNobody();
    void aShortcutThatIsTakenNeverFires();
};

void HotKeyTest::twoHotKeysHaveTheNumbersOneAndTwoAndIgnoreEachOthersPresses()
{
    FakeGlobalShortcuts shortcuts;
    int first = 0;
    int second = 0;
    const HotKey one(shortcuts, HotKey::keys(2, 6400), QString(), [&] { ++first; });
    const HotKey two(shortcuts, HotKey::keys(2, 4096), QString(), [&] { ++second; });
    QCOMPARE(one.id(), 1U);
    QCOMPARE(two.id(), 2U);
    shortcuts.registered.at(2).pressed();
    QCOMPARE(first, 0);
    QCOMPARE(second, 1);
    shortcuts.registered.at(1).pressed();
    QCOMPARE(first, 1);
    QCOMPARE(second, 1);
}

void HotKeyTest::theKeysAreThoseOfTheNumbers_data()
{
    QTest::addColumn<std::uint32_t>("keyCode");
    QTest::addColumn<std::uint32_t>("modifiers");
    QTest::addColumn<QKeyCombination>("keys");
    QTest::newRow("the shelf's own") << 2U << 6400U << QKeyCombination(Qt::CTRL | Qt::ALT | Qt::META, Qt::Key_D);
    QTest::newRow("control") << 2U << 4096U << QKeyCombination(Qt::CTRL, Qt::Key_D);
    QTest::newRow("alt") << 2U << 2048U << QKeyCombination(Qt::ALT, Qt::Key_D);
    QTest::newRow("shift") << 2U << 512U << QKeyCombination(Qt::SHIFT, Qt::Key_D);
    QTest::newRow("super") << 2U << 256U << QKeyCombination(Qt::META, Qt::Key_D);
    QTest::newRow("another key") << 1U << 0U << QKeyCombination(Qt::Key_unknown);
}

void HotKeyTest::theKeysAreThoseOfTheNumbers()
{
    QFETCH(const std::uint32_t, keyCode);
    QFETCH(const std::uint32_t, modifiers);
    QFETCH(const QKeyCombination, keys);
    QCOMPARE(HotKey::keys(keyCode, modifiers), keys);
}

void HotKeyTest::afterItsReleasePressesReachNobody()
{
    FakeGlobalShortcuts shortcuts;
    auto hotKey = std::make_unique<HotKey>(shortcuts, HotKey::keys(2, 6400), QString(), [] {});
    QCOMPARE(shortcuts.registered.size(), 1U);
    hotKey.reset();
    QVERIFY(shortcuts.registered.empty());
}

void HotKeyTest::aShortcutThatIsTakenNeverFires()
{
    FakeGlobalShortcuts shortcuts;
    shortcuts.refuses = true;
    const HotKey hotKey(shortcuts, HotKey::keys(2, 6400), QString(), [] {});
    QVERIFY(shortcuts.registered.empty());
}

QTEST_GUILESS_MAIN(HotKeyTest)
#include "HotKeyTest.moc"
