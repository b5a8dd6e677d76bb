#include "CapturedLog.h"
#include "StoreFixture.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

using namespace nookle;

namespace {

/// Counts how often the index is written: what it finds on disk it takes away.
class Writes {
public:
    explicit Writes(const StoreFixture& fixture)
        : m_path(fixture.indexPath())
    {
    }

    [[nodiscard]] bool happened() const { return QFile::remove(m_path); }

private:
    QString m_path;
};

/// A data folder with this index in it.
void install(const StoreFixture& fixture, const QByteArray& index)
{
    if (!QDir().mkpath(fixture.path(QStringLiteral("data"))))
        qFatal("cannot make the data folder");
    fixture.write(QStringLiteral("data/index.json"), index);
}

[[nodiscard]] QByteArray sample(const char* name)
{
    QFile file(QStringLiteral(NOOKLE_INDEX_DATA "/") + QLatin1String(name));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(file.fileName()));
    return file.readAll();
}

void install(const StoreFixture& fixture, const char* name)
{
    install(fixture, sample(name));
}

/// A device of the test's own. Its folder takes no files, so that not even root can put one in its place: a shelf that
/// wrote to where a link leads would otherwise take a device away from the whole machine.
class Device {
public:
    Device()
        : m_master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC))
    {
        if (m_master < 0 || ::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0)
            qFatal("no pseudo terminal");
    }
    ~Device() { ::close(m_master); }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    [[nodiscard]] QString path() const { return QFile::decodeName(::ptsname(m_master)); }

private:
    int m_master;
};

[[nodiscard]] mode_t permissions(const QString& path)
{
    struct stat status = {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 ? status.st_mode & 07777U : 0U;
}

} // namespace

class ShelfStorePersistenceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aMissingIndexIsAnEmptyShelfAndMakesNothing();
    void theShelfSurvivesARestart();
    void whatIsMadeIsForTheUserAlone();
    void anUndecodableIndexIsSetAsideInPlaceOfAnOlderOne();
    void anUndecodableIndexReplacesNoneThatIsWhole();
    void anUndecodableIndexIsSetAsideInPlaceOfAFolder();
    void theSaveAfterAnUndecodableIndexWritesAFreshOne();
    void whatIsNoRegularFileIsAnEmptyShelf_data();
    void whatIsNoRegularFileIsAnEmptyShelf();
    void aLargeIndexIsRead();
    void anIndexBeyondAllMeasureIsSetAsideUnread();
    void threeChangesMakeOneWriteAfterTheThird();
    void savingNowTakesThePlaceOfThePendingSave();
    void savingNowWritesAnUnchangedShelfToo();
    void aLongTextIsWrittenInTheBackground();
    void savingNowWaitsForALongText();
    void aStoreThatIsGoneDoesNotSave();
    void aDataFolderThatCannotBeMadeIsLogged();
    void aHostileFileNameReachesNothingOutside();
    void anIndexThatCannotBeReadIsSetAsideBeforeTheFirstSave_data();
    void anIndexThatCannotBeReadIsSetAsideBeforeTheFirstSave();
    void savingIsOffUntilTheFolderCanBeClaimed();
    void anImageIsNotTakenOverWhileSavingIsOff();
    void anIndexThatAppearsAfterTheStartIsSetAside();
    void anIndexThatAnotherProgramPutsInItsPlaceIsSetAside();
    void aFolderThatComesBackIsStillOurs();
    void theSameIndexInAnotherFileIsStillOurs();
    void anIndexOfTheSameSizeFromElsewhereIsSetAside();
    void aFolderInThePlaceOfTheIndexIsSetAside();
    void anIndexThatMayBeWholeReplacesNoneThatWasSetAside();
    void aShelfThatIsFullTakesNothing();
    void aShelfThatIsFullMovesWhatIsOnIt();
    void anIndexBeyondTheLimitIsNotWritten();
    void anImageThatCannotBeTakenOverIsTold();
    void nothingIsSavedToAFolderThatAnotherProgramHolds();
    void anExistingFolderIsTakenAwayFromOthers();
    void whatBelongsToNoItemIsClearedAwayAfterADay();
    void whatIsYoungOrNoItemsFolderStays();
    void anImageThatCannotBeTrashedStays();
    void withoutAReadableIndexNothingIsClearedAway();
    void afterALostIndexNothingIsClearedAwayUntilAllIsOnTheShelfAgain();
    void theFirstImageOfAShelfDoesNotLookLikeThatOfALostIndex();
    void filesHalfWrittenAreClearedAwayAfterADay();
    void whatIsClearedAwayWaitsForEveryIndexThatWasSetAside();

private:
    /// A shelf with an image and a folder that belongs to no item, two days ago.
    [[nodiscard]] static std::unique_ptr<ShelfStore> openWithImage(StoreFixture& fixture);
    [[nodiscard]] static std::unique_ptr<ShelfStore> openWithOrphan(StoreFixture& fixture);
};

namespace {

const QUuid orphan = QUuid::fromString(QStringLiteral("1B4E28BA-2FA1-11D2-883F-B9A761BDE3FB"));

} // namespace

std::unique_ptr<ShelfStore> ShelfStorePersistenceTest::openWithImage(StoreFixture& fixture)
{
    fixture.write(QStringLiteral("a.png"), "pixels");
    auto store = fixture.open();
    store->addImage(fixture.urlOf(QStringLiteral("a.png")));
    store->saveNow();
    return store;
}

std::unique_ptr<ShelfStore> ShelfStorePersistenceTest::openWithOrphan(StoreFixture& fixture)
{
    (void)openWithImage(fixture);
    QDir().mkpath(fixture.itemFolder(orphan));
    const QString folder = QStringLiteral("data/Files/1B4E28BA-2FA1-11D2-883F-B9A761BDE3FB/");
    fixture.write(folder + QStringLiteral("lost.png"), "pixels");
    fixture.write(folder + QStringLiteral("icon.png"), "pixels");
    fixture.now = QDateTime::currentDateTimeUtc().addDays(2);
    return fixture.open();
}

void ShelfStorePersistenceTest::aMissingIndexIsAnEmptyShelfAndMakesNothing()
{
    StoreFixture fixture;
    const CapturedLog log;
    const auto store = fixture.open();
    QVERIFY(store->items().isEmpty());
    fixture.queue.advance(10);
    QVERIFY(QDir(fixture.folder.path()).isEmpty());
    QVERIFY(log.lines().isEmpty());
}

void ShelfStorePersistenceTest::theShelfSurvivesARestart()
{
    StoreFixture fixture;
    fixture.now = QDateTime::fromString(QStringLiteral("2026-01-31T12:00:00Z"), Qt::ISODate);
    QList<ShelfItem> items;
    {
        const auto store = fixture.open();
        store->addText(QStringLiteral("milk"));
        store->addText(QStringLiteral("https://example.com/"));
        store->addFiles({ fixture.file("/a"), fixture.file("/b") });
        fixture.write(QStringLiteral("a.png"), "pixels");
        store->addImage(fixture.urlOf(QStringLiteral("a.png")));
        store->togglePinned(store->items().at(2).id);
        items = store->items();
        fixture.queue.advance(0.3);
    }
    const auto store = fixture.open();
    QVERIFY(store->items() == items);
    QCOMPARE(store->fileURLs().size(), 2);
    QVERIFY(QFile::exists(QFile::decodeName(filePath(store->localURL(store->items().constFirst()).value()))));
}

void ShelfStorePersistenceTest::whatIsMadeIsForTheUserAlone()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("secret"));
    store->saveNow();
    QCOMPARE(permissions(fixture.path(QStringLiteral("data"))), 0700U);
    QCOMPARE(permissions(fixture.indexPath()), 0600U);
}

void ShelfStorePersistenceTest::anUndecodableIndexIsSetAsideInPlaceOfAnOlderOne()
{
    StoreFixture fixture;
    install(fixture, "bad/content-with-two-kinds.json");
    const QByteArray bad = fixture.read(QStringLiteral("data/index.json"));
    fixture.write(QStringLiteral("data/index.corrupt.json"), "older");
    const CapturedLog log;
    const auto store = fixture.open();
    QVERIFY(store->items().isEmpty());
    QVERIFY(!QFile::exists(fixture.indexPath()));
    QCOMPARE(fixture.read(QStringLiteral("data/index.corrupt.json")), bad);
    QCOMPARE(log.lines().join(QLatin1Char('\n')),
             QStringLiteral("Nookle: index unreadable, moved to %1: Invalid number of keys found, expected one.")
                 .arg(fixture.path(QStringLiteral("data/index.corrupt.json"))));
    QCOMPARE(fixture.queue.waitingTasks(), 0);
}

void ShelfStorePersistenceTest::anUndecodableIndexReplacesNoneThatIsWhole()
{
    StoreFixture fixture;
    install(fixture, "good/every-kind.json");
    const QString aside = fixture.path(QStringLiteral("data/index.corrupt.json"));
    QVERIFY(QFile::rename(fixture.indexPath(), aside));
    const QByteArray whole = fixture.read(QStringLiteral("data/index.corrupt.json"));
    const CapturedLog log;
    for (const char* broken : { "bad/truncated.json", "bad/content-with-two-kinds.json" }) {
        install(fixture, broken);
        const QByteArray index = fixture.read(QStringLiteral("data/index.json"));
        (void)fixture.open();
        QCOMPARE(fixture.read(QStringLiteral("data/index.corrupt.json")), whole);
        QCOMPARE(fixture.read(QStringLiteral("data/index.corrupt-2.json")), index);
    }
    QVERIFY(!QFile::exists(fixture.path(QStringLiteral("data/index.corrupt-3.json"))));
}

void ShelfStorePersistenceTest::anUndecodableIndexIsSetAsideInPlaceOfAFolder()
{
    StoreFixture fixture;
    install(fixture, QByteArray());
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("data/index.corrupt.json/inside"))));
    const CapturedLog log;
    const auto store = fixture.open();
    QVERIFY(!QFile::exists(fixture.indexPath()));
    QVERIFY(QFileInfo(fixture.path(QStringLiteral("data/index.corrupt.json"))).isFile());
    QCOMPARE(log.lines().size(), 1);
}

void ShelfStorePersistenceTest::theSaveAfterAnUndecodableIndexWritesAFreshOne()
{
    StoreFixture fixture;
    install(fixture, "bad/truncated.json");
    {
        const CapturedLog log;
        const auto store = fixture.open();
        store->addText(QStringLiteral("milk"));
        fixture.queue.advance(0.3);
    }
    QCOMPARE(StoreFixture::names(*fixture.open()).join(QLatin1Char(' ')), QStringLiteral("milk"));
    QVERIFY(QFile::exists(fixture.path(QStringLiteral("data/index.corrupt.json"))));
}

void ShelfStorePersistenceTest::whatIsNoRegularFileIsAnEmptyShelf_data()
{
    QTest::addColumn<QString>("kind");
    for (const char* kind : { "folder", "pipe", "link to a device", "link to nothing", "link to itself" })
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void ShelfStorePersistenceTest::whatIsNoRegularFileIsAnEmptyShelf()
{
    QFETCH(QString, kind);
    const Device device;
    StoreFixture fixture;
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("data"))));
    if (kind == QStringLiteral("folder"))
        QVERIFY(QDir().mkpath(fixture.indexPath()));
    else if (kind == QStringLiteral("pipe"))
        QCOMPARE(::mkfifo(QFile::encodeName(fixture.indexPath()).constData(), 0600), 0);
    else if (kind == QStringLiteral("link to a device"))
        QVERIFY(QFile::link(device.path(), fixture.indexPath()));
    else if (kind == QStringLiteral("link to nothing"))
        QVERIFY(QFile::link(QStringLiteral("missing"), fixture.indexPath()));
    else
        QVERIFY(QFile::link(QStringLiteral("index.json"), fixture.indexPath()));
    const CapturedLog log;
    const auto store = fixture.open();
    QVERIFY(store->items().isEmpty());
    QVERIFY(log.lines().isEmpty());
    QVERIFY(!QFile::exists(fixture.path(QStringLiteral("data/index.corrupt.json"))));
}

void ShelfStorePersistenceTest::aLargeIndexIsRead()
{
    StoreFixture fixture;
    const QByteArray text(2'000'000, 'x');
    QByteArray index = "{\"version\":1,\"items\":[";
    for (int i = 0; i < 100; ++i) {
        index += i == 0 ? "" : ",";
        index += R"({"content":{"text":{"_0":")" + text
            + R"("}},"createdAt":"2026-01-31T12:00:00Z","id":"1B4E28BA-2FA1-11D2-883F-B9A761BDE3FB","pinned":true})";
    }
    index += "]}";
    install(fixture, index);
    index.clear();
    const auto store = fixture.open();
    QCOMPARE(store->items().size(), 100);
    QCOMPARE(std::get<TextContent>(store->items().constLast().content).text.size(), text.size());
}

void ShelfStorePersistenceTest::anIndexBeyondAllMeasureIsSetAsideUnread()
{
    StoreFixture fixture;
    install(fixture, "good/every-kind.json");
    QVERIFY(QFile::resize(fixture.indexPath(), Q_INT64_C(1'000'000'000'000)));
    const CapturedLog log;
    const auto store = fixture.open();
    QVERIFY(store->items().isEmpty());
    QVERIFY(QFile::exists(fixture.path(QStringLiteral("data/index.corrupt.json"))));
    QCOMPARE(log.lines().size(), 1);
}

void ShelfStorePersistenceTest::threeChangesMakeOneWriteAfterTheThird()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    const Writes writes(fixture);
    store->addText(QStringLiteral("a"));
    fixture.queue.advance(0.2);
    store->addText(QStringLiteral("b"));
    fixture.queue.advance(0.2);
    store->togglePinned(store->items().constFirst().id);
    fixture.queue.advance(0.299);
    QVERIFY(!writes.happened());
    fixture.queue.advance(0.001);
    QVERIFY(writes.happened());
    fixture.queue.advance(10);
    QVERIFY(!writes.happened());
}

void ShelfStorePersistenceTest::savingNowTakesThePlaceOfThePendingSave()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    const Writes writes(fixture);
    store->addText(QStringLiteral("a"));
    store->saveNow();
    QVERIFY(writes.happened());
    QCOMPARE(fixture.queue.waitingTasks(), 0);
    fixture.queue.advance(10);
    QVERIFY(!writes.happened());
}

void ShelfStorePersistenceTest::savingNowWritesAnUnchangedShelfToo()
{
    StoreFixture fixture;
    fixture.open()->saveNow();
    QCOMPARE(fixture.read(QStringLiteral("data/index.json")),
             QByteArray("{\n    \"items\": [\n    ],\n    \"version\": 1\n}\n"));
}

void ShelfStorePersistenceTest::aLongTextIsWrittenInTheBackground()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QString(5'000'000, QLatin1Char('x')));
    fixture.queue.advance(0.3);
    // Somebody looks now and then whether it is written.
    QCOMPARE(fixture.queue.waitingTimers(), 1);
    constexpr int patienceUnderValgrind = 50'000;
    QTRY_COMPARE_WITH_TIMEOUT((fixture.queue.advance(0.1), fixture.queue.waitingTimers()), 0, patienceUnderValgrind);
    QCOMPARE(fixture.open()->items().size(), 1);
}

void ShelfStorePersistenceTest::savingNowWaitsForALongText()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QString(5'000'000, QLatin1Char('x')));
    fixture.queue.advance(0.3);
    store->togglePinned(store->items().constFirst().id);
    store->saveNow();
    QCOMPARE(fixture.queue.waitingTimers(), 0);
    QVERIFY(fixture.open()->items().constFirst().pinned);
}

void ShelfStorePersistenceTest::aStoreThatIsGoneDoesNotSave()
{
    StoreFixture fixture;
    fixture.open()->addText(QStringLiteral("a"));
    fixture.queue.advance(10);
    QVERIFY(!QFile::exists(fixture.indexPath()));
}

void ShelfStorePersistenceTest::aDataFolderThatCannotBeMadeIsLogged()
{
    StoreFixture fixture;
    fixture.write(QStringLiteral("data"), "in the way");
    const CapturedLog log;
    const auto store = fixture.open();
    store->addText(QStringLiteral("a"));
    fixture.queue.advance(0.3);
    QCOMPARE(log.lines().join(QLatin1Char('\n')), QStringLiteral("Nookle: saving failed: Not a directory"));
    QCOMPARE(fixture.queue.waitingTasks(), 0);
    QCOMPARE(store->items().size(), 1);
}

void ShelfStorePersistenceTest::aHostileFileNameReachesNothingOutside()
{
    StoreFixture fixture;
    const QByteArray absolute = QFile::encodeName(fixture.path(QStringLiteral("victim.png")));
    install(fixture, sample("good/hostile-file-names.json").replace("/absolute/victim.png", absolute));
    fixture.write(QStringLiteral("data/victim.png"), "precious");
    fixture.write(QStringLiteral("victim.png"), "precious");
    QStringList located;
    {
        const auto store = fixture.open();
        QCOMPARE(store->items().size(), 7);
        for (const ShelfItem& item : QList<ShelfItem>(store->items())) {
            // With the folder there, a path through it leads somewhere.
            QVERIFY(QDir().mkpath(fixture.itemFolder(item.id)));
            if (store->localURL(item))
                located.append(item.displayName());
            store->remove(item.id);
        }
    }
    QVERIFY(fixture.trash.moved.isEmpty());
    QCOMPARE(fixture.read(QStringLiteral("data/victim.png")), QByteArray("precious"));
    QCOMPARE(fixture.read(QStringLiteral("victim.png")), QByteArray("precious"));
    QCOMPARE(located, QStringList());
    QVERIFY(QDir(fixture.path(QStringLiteral("data/Files"))).isEmpty());
}

void ShelfStorePersistenceTest::whatBelongsToNoItemIsClearedAwayAfterADay()
{
    StoreFixture fixture;
    const auto store = openWithOrphan(fixture);
    store->removeOrphans();
    QVERIFY(!QFile::exists(fixture.itemFolder(orphan)));
    QStringList moved;
    for (const QUrl& url : std::as_const(fixture.trash.moved))
        moved.append(url.fileName());
    moved.sort();
    QCOMPARE(moved.join(QLatin1Char(' ')), QStringLiteral("icon.png lost.png"));
    const auto image = store->localURL(store->items().constFirst());
    QVERIFY(image && QFile::exists(image->toLocalFile()));
}

void ShelfStorePersistenceTest::whatIsYoungOrNoItemsFolderStays()
{
    StoreFixture fixture;
    const auto store = openWithOrphan(fixture);
    const QString files = fixture.path(QStringLiteral("data/Files/"));
    QVERIFY(QDir().mkpath(files + QStringLiteral("mine")));
    QVERIFY(QDir().mkpath(files + orphan.toString(QUuid::WithoutBraces)));
    QVERIFY(
        QFile::link(fixture.itemFolder(orphan), files + QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper()));
    fixture.now = QDateTime::currentDateTimeUtc().addSecs(3600);
    store->removeOrphans();
    QCOMPARE(QDir(files).entryList(QDir::AllEntries | QDir::NoDotAndDotDot).size(), 5);
    fixture.now = QDateTime::currentDateTimeUtc().addDays(2);
    store->removeOrphans();
    QCOMPARE(QDir(files).entryList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::System).size(), 4);
}

void ShelfStorePersistenceTest::anImageThatCannotBeTrashedStays()
{
    StoreFixture fixture;
    const auto store = openWithOrphan(fixture);
    fixture.trash.failure = Failure{ QStringLiteral("no Trash") };
    store->removeOrphans();
    QVERIFY(QFile::exists(fixture.itemFolder(orphan) + QStringLiteral("/lost.png")));
}

void ShelfStorePersistenceTest::withoutAReadableIndexNothingIsClearedAway()
{
    StoreFixture fixture;
    const CapturedLog log;
    (void)openWithOrphan(fixture);
    fixture.write(QStringLiteral("data/index.json"), "{");
    fixture.open()->removeOrphans();
    QVERIFY(QFile::exists(fixture.itemFolder(orphan)));
    auto store = fixture.open();
    store->addText(QStringLiteral("milk"));
    store->saveNow();
    fixture.open()->removeOrphans();
    QVERIFY(QFile::exists(fixture.itemFolder(orphan)));
    QVERIFY(QFile::remove(fixture.path(QStringLiteral("data/index.corrupt.json"))));
    fixture.open()->removeOrphans();
    QVERIFY(!QFile::exists(fixture.itemFolder(orphan)));
}

void ShelfStorePersistenceTest::anIndexThatCannotBeReadIsSetAsideBeforeTheFirstSave_data()
{
    QTest::addColumn<QString>("target");
    // Its first byte cannot be read.
    QTest::newRow("the disk fails") << QStringLiteral("/proc/self/mem");
    QTest::newRow("a link to itself") << QStringLiteral("index.json");
    QTest::newRow("a device") << QString();
}

void ShelfStorePersistenceTest::anIndexThatCannotBeReadIsSetAsideBeforeTheFirstSave()
{
    QFETCH(QString, target);
    const Device device;
    StoreFixture fixture;
    QVERIFY(QDir().mkpath(fixture.itemFolder(orphan)));
    QVERIFY(QFile::link(target.isEmpty() ? device.path() : target, fixture.indexPath()));
    const QString aside = fixture.path(QStringLiteral("data/index.corrupt.json"));
    const CapturedLog log;
    {
        const auto store = fixture.open();
        QVERIFY(log.lines().isEmpty());
        store->addText(QStringLiteral("milk"));
        fixture.queue.advance(0.3);
    }
    QVERIFY(QFileInfo(aside).isSymLink());
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(log.lines().constFirst().startsWith(QStringLiteral("Nookle: index unreadable, moved to %1: ").arg(aside)));
    fixture.now = QDateTime::currentDateTimeUtc().addDays(2);
    const auto store = fixture.open();
    QCOMPARE(StoreFixture::names(*store).join(QLatin1Char(' ')), QStringLiteral("milk"));
    store->removeOrphans();
    QVERIFY(QFile::exists(fixture.itemFolder(orphan)));
}

void ShelfStorePersistenceTest::savingIsOffUntilTheFolderCanBeClaimed()
{
    StoreFixture fixture;
    QVERIFY(QDir().mkpath(fixture.path(QStringLiteral("data"))));
    QVERIFY(QFile::link(QStringLiteral("/proc/self/mem"), fixture.indexPath()));
    const auto store = fixture.open();
    fixture.claimFailure = Failure{ QStringLiteral("no") };
    const CapturedLog log;
    for (int i = 0; i < 3; ++i) {
        store->addText(QString::number(i));
        fixture.queue.advance(0.3);
    }
    QCOMPARE(log.lines().join(QLatin1Char('\n')), QStringLiteral("Nookle: saving is off: no"));
    QVERIFY(QFileInfo(fixture.indexPath()).isSymLink());
    // What stands in the way may go.
    fixture.claimFailure.reset();
    store->saveNow();
    QCOMPARE(fixture.open()->items().size(), 3);
}

void ShelfStorePersistenceTest::anImageIsNotTakenOverWhileSavingIsOff()
{
    StoreFixture fixture;
    fixture.claimFailure = Failure{ QStringLiteral("no") };
    fixture.write(QStringLiteral("a.png"), "pixels");
    const CapturedLog log;
    const auto store = fixture.open();
    store->addImage(fixture.urlOf(QStringLiteral("a.png")));
    QVERIFY(store->items().isEmpty());
    QVERIFY(QFile::exists(fixture.path(QStringLiteral("a.png"))));
}

void ShelfStorePersistenceTest::anIndexThatAppearsAfterTheStartIsSetAside()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    install(fixture, "good/every-kind.json");
    const QByteArray other = fixture.read(QStringLiteral("data/index.json"));
    const CapturedLog log;
    store->saveNow();
    QCOMPARE(fixture.read(QStringLiteral("data/index.corrupt.json")), other);
    QCOMPARE(log.lines().size(), 1);
}

void ShelfStorePersistenceTest::anIndexThatAnotherProgramPutsInItsPlaceIsSetAside()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("milk"));
    store->saveNow();
    QVERIFY(QDir().rename(fixture.path(QStringLiteral("data")), fixture.path(QStringLiteral("old"))));
    install(fixture, "good/every-kind.json");
    const QByteArray other = fixture.read(QStringLiteral("data/index.json"));
    const CapturedLog log;
    store->addText(QStringLiteral("bread"));
    store->saveNow();
    QCOMPARE(fixture.read(QStringLiteral("data/index.corrupt.json")), other);
    QCOMPARE(log.lines().size(), 1);
    QCOMPARE(fixture.open()->items().size(), 2);
}

void ShelfStorePersistenceTest::theSameIndexInAnotherFileIsStillOurs()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    for (const char* text : { "milk", "bread" }) {
        store->addText(QString::fromLatin1(text));
        store->saveNow();
        // As on file systems whose files get another identity or time by themselves.
        QVERIFY(QFile::copy(fixture.indexPath(), fixture.path(QStringLiteral("copy"))));
        QVERIFY(QFile::remove(fixture.indexPath()));
        QVERIFY(QFile::rename(fixture.path(QStringLiteral("copy")), fixture.indexPath()));
    }
    const CapturedLog log;
    store->saveNow();
    QVERIFY(log.lines().isEmpty());
    QVERIFY(!QFile::exists(fixture.path(QStringLiteral("data/index.corrupt.json"))));
}

void ShelfStorePersistenceTest::anIndexOfTheSameSizeFromElsewhereIsSetAside()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("milk"));
    store->saveNow();
    const QByteArray other = fixture.read(QStringLiteral("data/index.json")).replace("milk", "mild");
    fixture.write(QStringLiteral("data/index.json"), other);
    const CapturedLog log;
    store->saveNow();
    QCOMPARE(fixture.read(QStringLiteral("data/index.corrupt.json")), other);
    QCOMPARE(log.lines().size(), 1);
}

void ShelfStorePersistenceTest::aFolderInThePlaceOfTheIndexIsSetAside()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("milk"));
    store->saveNow();
    QVERIFY(QFile::remove(fixture.indexPath()));
    QVERIFY(QDir().mkpath(fixture.indexPath()));
    const CapturedLog log;
    store->addText(QStringLiteral("bread"));
    store->saveNow();
    QCOMPARE(fixture.open()->items().size(), 2);
    QVERIFY(QFileInfo(fixture.path(QStringLiteral("data/index.corrupt.json"))).isDir());
    QCOMPARE(log.lines().size(), 1);
}

void ShelfStorePersistenceTest::anIndexThatMayBeWholeReplacesNoneThatWasSetAside()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->saveNow();
    for (const char* other : { "first", "second", "third" }) {
        QVERIFY(QFile::remove(fixture.indexPath()));
        fixture.write(QStringLiteral("data/index.json"), other);
        store->saveNow();
    }
    QCOMPARE(fixture.read(QStringLiteral("data/index.corrupt.json")), QByteArray("first"));
    QCOMPARE(fixture.read(QStringLiteral("data/index.corrupt-2.json")), QByteArray("second"));
    QCOMPARE(fixture.read(QStringLiteral("data/index.corrupt-3.json")), QByteArray("third"));
}

void ShelfStorePersistenceTest::aFolderThatComesBackIsStillOurs()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addText(QStringLiteral("milk"));
    store->saveNow();
    const auto move = [&](const char* from, const char* to) {
        return QDir().rename(fixture.path(QLatin1String(from)), fixture.path(QLatin1String(to)));
    };
    QVERIFY(move("data", "away"));
    QVERIFY(move("away", "data"));
    store->addText(QStringLiteral("bread"));
    const CapturedLog log;
    store->saveNow();
    QVERIFY(log.lines().isEmpty());
    QVERIFY(!QFile::exists(fixture.path(QStringLiteral("data/index.corrupt.json"))));
}

void ShelfStorePersistenceTest::aShelfThatIsFullTakesNothing()
{
    StoreFixture fixture;
    fixture.largestIndex = 10'000;
    fixture.fetchesLinkMetadata = false;
    fixture.write(QStringLiteral("a.png"), "pixels");
    const auto store = fixture.open();
    QStringList told;
    connect(store.get(), &ShelfStore::additionFailed, this, [&](const QString& reason) { told.append(reason); });
    store->addText(QString(9'000, QLatin1Char('x')));
    QCOMPARE(store->items().size(), 1);
    QVERIFY(told.isEmpty());

    const CapturedLog log;
    // Six bytes each.
    store->addText(QString(200, QChar(1)));
    QCOMPARE(told.size(), 1);
    store->addLink(*LinkUrl::parse(QStringLiteral("https://example.org/") + QString(1'000, QLatin1Char('x'))), {});
    store->addFiles({ fixture.file("/a"), QUrl(QStringLiteral("file:///") + QString(1'000, QLatin1Char('x'))) });
    QCOMPARE(told.size(), 3);
    QCOMPARE(log.lines().size(), 3);
    QCOMPARE(store->items().size(), 1);
    QVERIFY(store->fileURLs().isEmpty());
    QCOMPARE(fixture.references.released.size(), 2);
    store->saveNow();
    QCOMPARE(fixture.open()->items().size(), 1);
}

void ShelfStorePersistenceTest::aShelfThatIsFullMovesWhatIsOnIt()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    store->addFiles({ fixture.file("/a") });
    store->addText(QStringLiteral("milk"));
    store->saveNow();
    fixture.largestIndex = fixture.read(QStringLiteral("data/index.json")).size();
    const auto full = fixture.open();
    const CapturedLog log;
    full->addFiles({ fixture.file("/a") });
    full->addText(QStringLiteral("milk"));
    QCOMPARE(full->items().size(), 2);
    QVERIFY(log.lines().isEmpty());
}

void ShelfStorePersistenceTest::anIndexBeyondTheLimitIsNotWritten()
{
    StoreFixture fixture;
    fixture.fetchesLinkMetadata = false;
    fixture.largestIndex = 500;
    const auto store = fixture.open();
    store->addLink(*LinkUrl::parse(QStringLiteral("https://example.org/")), {});
    store->saveNow();
    const QByteArray before = fixture.read(QStringLiteral("data/index.json"));
    store->updateLink(store->items().constFirst().id, QString(300, QLatin1Char('x')), {});
    const CapturedLog log;
    store->saveNow();
    QCOMPARE(log.lines().join(QLatin1Char('\n')), QStringLiteral("Nookle: saving failed: larger than 500 bytes"));
    QCOMPARE(fixture.read(QStringLiteral("data/index.json")), before);
}

void ShelfStorePersistenceTest::anImageThatCannotBeTakenOverIsTold()
{
    StoreFixture fixture;
    const auto store = fixture.open();
    QStringList told;
    connect(store.get(), &ShelfStore::additionFailed, this, [&](const QString& reason) { told.append(reason); });
    const CapturedLog log;
    store->addImage(fixture.urlOf(QStringLiteral("missing.png")));
    QCOMPARE(told.join(QLatin1Char('\n')),
             QStringLiteral("The image could not be added to the shelf: No such file or directory"));
    QCOMPARE(log.lines().join(QLatin1Char('\n')),
             QStringLiteral("Nookle: could not take over image: No such file or directory"));
}

void ShelfStorePersistenceTest::nothingIsSavedToAFolderThatAnotherProgramHolds()
{
    StoreFixture fixture;
    fixture.claimFailure = Failure{ QStringLiteral("another program holds the shelf") };
    const CapturedLog log;
    fixture.open()->saveNow();
    QVERIFY(!QFile::exists(fixture.indexPath()));
    QCOMPARE(log.lines().join(QLatin1Char('\n')),
             QStringLiteral("Nookle: saving is off: another program holds the shelf"));
}

void ShelfStorePersistenceTest::anExistingFolderIsTakenAwayFromOthers()
{
    StoreFixture fixture;
    install(fixture, "good/every-kind.json");
    const QString folder = fixture.path(QStringLiteral("data"));
    QCOMPARE(::chmod(QFile::encodeName(folder).constData(), 0755), 0);
    QVERIFY(!fixture.open()->items().isEmpty());
    QCOMPARE(permissions(folder), 0700U);
}

void ShelfStorePersistenceTest::afterALostIndexNothingIsClearedAwayUntilAllIsOnTheShelfAgain()
{
    StoreFixture fixture;
    (void)openWithOrphan(fixture);
    const QByteArray index = fixture.read(QStringLiteral("data/index.json"));
    QVERIFY(QFile::remove(fixture.indexPath()));
    fixture.open()->saveNow();
    const auto startAgain = [&] { fixture.open()->removeOrphans(); };
    startAgain();
    startAgain();
    QVERIFY(QFile::exists(fixture.itemFolder(orphan)));
    QVERIFY(fixture.trash.moved.isEmpty());

    // The user finds the index, and looks through the folder that it does not name.
    fixture.write(QStringLiteral("data/index.json"), index);
    startAgain();
    QVERIFY(QFile::exists(fixture.itemFolder(orphan)));
    QVERIFY(QDir(fixture.itemFolder(orphan)).removeRecursively());
    startAgain();
    QVERIFY(QDir().mkpath(fixture.itemFolder(orphan)));
    startAgain();
    QVERIFY(!QFile::exists(fixture.itemFolder(orphan)));
}

void ShelfStorePersistenceTest::theFirstImageOfAShelfDoesNotLookLikeThatOfALostIndex()
{
    StoreFixture fixture;
    fixture.write(QStringLiteral("a.png"), "pixels");
    // As after a crash before the save.
    fixture.open()->addImage(fixture.urlOf(QStringLiteral("a.png")));
    fixture.now = QDateTime::currentDateTimeUtc().addDays(2);
    fixture.open()->removeOrphans();
    QCOMPARE(fixture.trash.moved.size(), 1);
    QVERIFY(QDir(fixture.path(QStringLiteral("data/Files"))).isEmpty());
}

void ShelfStorePersistenceTest::filesHalfWrittenAreClearedAwayAfterADay()
{
    StoreFixture fixture;
    auto store = openWithImage(fixture);
    const QUrl image = store->localURL(store->items().constFirst()).value_or(QUrl());
    const QStringList names{ fixture.path(QStringLiteral("data/.unfinished-1234")),
                             QFileInfo(image.toLocalFile()).path() + QStringLiteral("/.unfinished-5678") };
    for (const QString& name : names) {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    fixture.now = QDateTime::currentDateTimeUtc().addSecs(3600);
    store->removeOrphans();
    for (const QString& name : names)
        QVERIFY(QFile::exists(name));
    fixture.now = QDateTime::currentDateTimeUtc().addDays(2);
    store->removeOrphans();
    for (const QString& name : names)
        QVERIFY(!QFile::exists(name));
    QVERIFY(QFile::exists(fixture.indexPath()));
    QVERIFY(QFile::exists(image.toLocalFile()));
}

void ShelfStorePersistenceTest::whatIsClearedAwayWaitsForEveryIndexThatWasSetAside()
{
    StoreFixture fixture;
    (void)openWithOrphan(fixture);
    fixture.write(QStringLiteral("data/index.corrupt-2.json"), "any");
    fixture.open()->removeOrphans();
    QVERIFY(QFile::exists(fixture.itemFolder(orphan)));
    QVERIFY(QFile::remove(fixture.path(QStringLiteral("data/index.corrupt-2.json"))));
    fixture.open()->removeOrphans();
    QVERIFY(!QFile::exists(fixture.itemFolder(orphan)));
}

QTEST_GUILESS_MAIN(ShelfStorePersistenceTest)
#include "ShelfStorePersistenceTest.moc"
