#include "AppSettings.h"

#include "FakeUserDefaults.h"

#include <QSignalSpy>
#include <QTest>

using namespace nookle;

using Expiry = AppSettings::Expiry;

class AppSettingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFirstLaunchHasTheRegisteredDefaults();
    void exactlyFourDefaultsAreRegistered();
    void anUnknownStoredExpiryReadsAsADay_data();
    void anUnknownStoredExpiryReadsAsADay();
    void everyKnownStoredExpiryIsReadBack();
    void assigningAWeekWritesItsSeconds();
    void assigningTheCurrentValueWritesAndTellsNobody();
    void assigningANewValueWritesAndTellsTheObserversOfThatValueAlone();
    void aStoredValueWinsOverItsDefault();
    void theChoicesAreOfferedFromNeverToAWeek();
};

void AppSettingsTest::aFirstLaunchHasTheRegisteredDefaults()
{
    FakeUserDefaults defaults;
    const AppSettings settings(defaults);
    QCOMPARE(settings.autoExpandOnDrag(), true);
    QCOMPARE(settings.expiry(), Expiry::day);
    QCOMPARE(settings.reservesSpace(), false);
    QCOMPARE(settings.collectScreenshots(), false);
    QCOMPARE(settings.moveScreenshots(), false);
    QVERIFY(defaults.writtenKeys.isEmpty());
}

void AppSettingsTest::exactlyFourDefaultsAreRegistered()
{
    FakeUserDefaults defaults;
    const AppSettings settings(defaults);
    const QVariantMap expected{
        { QStringLiteral("autoExpandOnDrag"), true },
        { QStringLiteral("expiry"), qint64{ 86400 } },
        { QStringLiteral("collectScreenshots"), false },
        { QStringLiteral("moveScreenshots"), false },
    };
    QCOMPARE(defaults.registered, expected);
}

void AppSettingsTest::anUnknownStoredExpiryReadsAsADay_data()
{
    QTest::addColumn<qint64>("stored");
    QTest::newRow("two hours") << qint64{ 7200 };
    QTest::newRow("negative") << qint64{ -1 };
    QTest::newRow("one second more than an hour") << qint64{ 3601 };
    QTest::newRow("huge") << std::numeric_limits<qint64>::max();
}

void AppSettingsTest::anUnknownStoredExpiryReadsAsADay()
{
    QFETCH(const qint64, stored);
    FakeUserDefaults defaults;
    defaults.stored.insert(QStringLiteral("expiry"), stored);
    QCOMPARE(AppSettings(defaults).expiry(), Expiry::day);
}

void AppSettingsTest::everyKnownStoredExpiryIsReadBack()
{
    for (const Expiry expiry : AppSettings::allExpiries) {
        FakeUserDefaults defaults;
        defaults.stored.insert(QStringLiteral("expiry"), static_cast<qint64>(expiry));
        QCOMPARE(AppSettings(defaults).expiry(), expiry);
    }
}

void AppSettingsTest::assigningAWeekWritesItsSeconds()
{
    FakeUserDefaults defaults;
    AppSettings settings(defaults);
    settings.setExpiry(Expiry::week);
    QCOMPARE(defaults.stored.value(QStringLiteral("expiry")), QVariant(qint64{ 604800 }));
}

void AppSettingsTest::assigningTheCurrentValueWritesAndTellsNobody()
{
    FakeUserDefaults defaults;
    AppSettings settings(defaults);
    const QSignalSpy flagChanges(&settings, &AppSettings::autoExpandOnDragChanged);
    const QSignalSpy expiryChanges(&settings, &AppSettings::expiryChanged);
    settings.setAutoExpandOnDrag(true);
    settings.setExpiry(Expiry::day);
    QCOMPARE(defaults.writtenKeys, QStringList({ QStringLiteral("autoExpandOnDrag"), QStringLiteral("expiry") }));
    QCOMPARE(flagChanges.count(), 0);
    QCOMPARE(expiryChanges.count(), 0);
}

void AppSettingsTest::assigningANewValueWritesAndTellsTheObserversOfThatValueAlone()
{
    FakeUserDefaults defaults;
    AppSettings settings(defaults);
    const QSignalSpy collectChanges(&settings, &AppSettings::collectScreenshotsChanged);
    const QSignalSpy moveChanges(&settings, &AppSettings::moveScreenshotsChanged);
    settings.setCollectScreenshots(true);
    QCOMPARE(settings.collectScreenshots(), true);
    QCOMPARE(defaults.stored.value(QStringLiteral("collectScreenshots")), QVariant(true));
    QCOMPARE(collectChanges.count(), 1);
    QCOMPARE(moveChanges.count(), 0);
    const QSignalSpy reserveChanges(&settings, &AppSettings::reservesSpaceChanged);
    settings.setReservesSpace(true);
    QCOMPARE(settings.reservesSpace(), true);
    QCOMPARE(defaults.stored.value(QStringLiteral("reserveSpace")), QVariant(true));
    QCOMPARE(reserveChanges.count(), 1);
    QCOMPARE(moveChanges.count(), 0);
    settings.setMoveScreenshots(true);
    QCOMPARE(moveChanges.count(), 1);
    QCOMPARE(defaults.stored.value(QStringLiteral("moveScreenshots")), QVariant(true));
}

void AppSettingsTest::aStoredValueWinsOverItsDefault()
{
    FakeUserDefaults defaults;
    defaults.stored.insert(QStringLiteral("autoExpandOnDrag"), false);
    QCOMPARE(AppSettings(defaults).autoExpandOnDrag(), false);
}

void AppSettingsTest::theChoicesAreOfferedFromNeverToAWeek()
{
    QStringList titles;
    for (const Expiry expiry : AppSettings::allExpiries)
        titles.append(AppSettings::title(expiry));
    QCOMPARE(titles.join(QLatin1Char('|')), QStringLiteral("Never|After 1 hour|After 24 hours|After 1 week"));
}

QTEST_GUILESS_MAIN(AppSettingsTest)
#include "AppSettingsTest.moc"
