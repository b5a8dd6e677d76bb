#include "HeldKey.h"

#include <QKeyEvent>
#include <QTest>

using namespace nookle;

/// The events here are those of a real X server, and of the toolkit in a Wayland session.
class HeldKeyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aRepeatOfTheServerIsOne_data();
    void aRepeatOfTheServerIsOne();
    void tapsOfAMomentAreNoRepeats_data();
    void tapsOfAMomentAreNoRepeats();
    void aTapAfterARepeatIsNone();
    void theToolkitsOwnRepeatsHaveTheTimeOfThePress();
    void tapsOfAMomentAreNoRepeatsOfTheToolkit();

private:
    using Repeats = HeldKey::Repeats;

    static constexpr quint64 start = 5000;

    static constexpr quint32 scanCode = 119;

    [[nodiscard]] static bool isRepeat(HeldKey& key, quint64 time, bool isMarked = false)
    {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, {}, scanCode, 0, 0, {}, isMarked);
        press.setTimestamp(time);
        return key.isRepeat(press);
    }
    static void release(HeldKey& key, quint64 time)
    {
        QKeyEvent event(QEvent::KeyRelease, Qt::Key_Delete, {}, scanCode, 0, 0);
        event.setTimestamp(time);
        key.release(event);
    }
};

void HeldKeyTest::aRepeatOfTheServerIsOne_data()
{
    QTest::addColumn<bool>("isMarked");
    QTest::newRow("marked") << true;
    QTest::newRow("not marked") << false;
}

void HeldKeyTest::aRepeatOfTheServerIsOne()
{
    QFETCH(const bool, isMarked);
    HeldKey key(Repeats::byServer);
    QVERIFY(!isRepeat(key, start));
    // The first repeat comes after the shortest delay that desktops offer, the others quickly.
    for (const quint64 time : { start + 100, start + 110, start + 120 }) {
        release(key, time);
        QVERIFY(isRepeat(key, time, isMarked));
    }
}

void HeldKeyTest::tapsOfAMomentAreNoRepeats_data()
{
    QTest::addColumn<bool>("isMarked");
    QTest::addColumn<quint64>("later");
    QTest::newRow("in one millisecond") << true << quint64(0);
    QTest::newRow("in one millisecond, not marked") << false << quint64(0);
    QTest::newRow("in two") << true << quint64(1);
}

void HeldKeyTest::tapsOfAMomentAreNoRepeats()
{
    QFETCH(const bool, isMarked);
    QFETCH(const quint64, later);
    HeldKey key(Repeats::byServer);
    QVERIFY(!isRepeat(key, start));
    quint64 time = start;
    // Together they take longer than a held key needs to be repeated.
    for (int tap = 0; tap < 500; ++tap) {
        time += later;
        release(key, time);
        QVERIFY(!isRepeat(key, time, isMarked));
    }
}

void HeldKeyTest::aTapAfterARepeatIsNone()
{
    HeldKey key(Repeats::byServer);
    QVERIFY(!isRepeat(key, start));
    release(key, start + 500);
    QVERIFY(isRepeat(key, start + 500));
    release(key, start + 520);
    QVERIFY(!isRepeat(key, start + 540));
}

void HeldKeyTest::theToolkitsOwnRepeatsHaveTheTimeOfThePress()
{
    HeldKey key(Repeats::byToolkit);
    QVERIFY(!isRepeat(key, start));
    for (int repeat = 0; repeat < 3; ++repeat) {
        release(key, start);
        QVERIFY(isRepeat(key, start, true));
    }
}

void HeldKeyTest::tapsOfAMomentAreNoRepeatsOfTheToolkit()
{
    HeldKey key(Repeats::byToolkit);
    QVERIFY(!isRepeat(key, start));
    release(key, start);
    QVERIFY(!isRepeat(key, start));
}

QTEST_GUILESS_MAIN(HeldKeyTest)
#include "HeldKeyTest.moc"
