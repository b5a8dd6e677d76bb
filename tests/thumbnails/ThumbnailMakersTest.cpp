#include "LinuxThumbnailGenerator.h"

#include "ThumbnailsFixture.h"

#include <QFile>

#include <sys/stat.h>

using namespace nookle;

/// What becomes of files that the decoder cannot decode.
class ThumbnailMakersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void makerIsAskedForWhatCannotBeDecoded();
    void makerIsNotAskedForWhatCanBeDecoded();
    void makerIsNotAskedForWhatIsEmptyOrTemporary();
    void imageThatWasMadeIsShownAndSaved();
    void thumbnailThatWasSavedByAMakerIsShown();
    void makersAreAskedInTheirOrder_data();
    void makersAreAskedInTheirOrder();
    void fewAreMadeAtATimeAndTheLastAskedFirst();
    void decodingGoesOnWhileMakersAreAtWork();
    void droppedRequestDropsWhatIsBeingMade();
};

void ThumbnailMakersTest::makerIsAskedForWhatCannotBeDecoded()
{
    ThumbnailsFixture fixture;
    fixture.maker->canMake = true;
    fixture.files.makeFile("a b.pdf", "%PDF-1.4\n");
    fixture.ask("a b.pdf", 52, 3);
    QTRY_COMPARE((fixture.queue.runPosted(), fixture.maker->asked.size()), 1);
    const ThumbnailMaker::Wanted wanted = fixture.maker->asked.first();
    QCOMPARE(wanted.path, fixture.files.path("a b.pdf"));
    QCOMPARE(wanted.uri, "file://" + fixture.files.path() + "/a%20b.pdf");
    QCOMPARE(wanted.mimeType, QStringLiteral("application/pdf"));
    QCOMPARE(wanted.side, 256);
    QVERIFY(fixture.maker->finish(0, std::nullopt));
    QTRY_VERIFY(fixture.isAnswered("a b.pdf"));
    QCOMPARE(fixture.pictures["a b.pdf"], std::nullopt);
}

void ThumbnailMakersTest::makerIsNotAskedForWhatCanBeDecoded()
{
    ThumbnailsFixture fixture;
    fixture.maker->canMake = true;
    fixture.files.makeFile("a.pdf", encoded(plainImage(5, 5), "png"));
    QVERIFY(fixture.thumbnail("a.pdf"));
    QVERIFY(fixture.maker->asked.isEmpty());
}

void ThumbnailMakersTest::makerIsNotAskedForWhatIsEmptyOrTemporary()
{
    ThumbnailsFixture fixture;
    fixture.maker->canMake = true;
    fixture.files.makeFile("empty.mp4", QByteArray());
    fixture.files.makeFile("temporary/a.mp4", "a film");
    QCOMPARE(fixture.thumbnail("empty.mp4"), std::nullopt);
    QCOMPARE(fixture.thumbnail("temporary/a.mp4"), std::nullopt);
    QVERIFY(fixture.maker->asked.isEmpty());
}

void ThumbnailMakersTest::imageThatWasMadeIsShownAndSaved()
{
    ThumbnailsFixture fixture;
    fixture.maker->canMake = true;
    fixture.files.makeFile("a.mp4", "a film");
    fixture.ask("a.mp4");
    QTRY_COMPARE((fixture.queue.runPosted(), fixture.maker->running()), 1);
    const QByteArray image = fixture.files.makeFile("made", encoded(plainImage(400, 200, Qt::blue), "png"));
    fixture.maker->finish(0, ThumbnailMaker::Made{ RegularFile::open(image, RegularFile::Links::refuse) });
    QTRY_VERIFY(fixture.isAnswered("a.mp4"));
    QCOMPARE(colourOf(fixture.pictures["a.mp4"]), QColor(Qt::blue));
    ThumbnailsFixture::waitForSaved();
    QCOMPARE(colourOf(fixture.thumbnail("a.mp4")), QColor(Qt::blue));
    QCOMPARE(fixture.maker->asked.size(), 1);
}

void ThumbnailMakersTest::thumbnailThatWasSavedByAMakerIsShown()
{
    ThumbnailsFixture fixture;
    fixture.maker->canMake = true;
    fixture.files.makeFile("a.mp4", "a film");
    fixture.ask("a.mp4");
    QTRY_COMPARE((fixture.queue.runPosted(), fixture.maker->running()), 1);
    fixture.saveThumbnail("a.mp4", "normal", plainImage(128, 128, Qt::blue));
    fixture.maker->finish(0, ThumbnailMaker::Made());
    QTRY_VERIFY(fixture.isAnswered("a.mp4"));
    QCOMPARE(colourOf(fixture.pictures["a.mp4"]), QColor(Qt::blue));
}

void ThumbnailMakersTest::makersAreAskedInTheirOrder_data()
{
    QTest::addColumn<bool>("saysItHasSaved");
    QTest::newRow("the first makes none") << false;
    QTest::newRow("the first saves none") << true;
}

void ThumbnailMakersTest::makersAreAskedInTheirOrder()
{
    QFETCH(const bool, saysItHasSaved);
    ThumbnailsFixture fixture;
    fixture.maker->canMake = true;
    fixture.otherMaker->canMake = true;
    fixture.files.makeFile("a.mp4", "a film");
    fixture.ask("a.mp4");
    QTRY_COMPARE((fixture.queue.runPosted(), fixture.maker->running()), 1);
    QVERIFY(fixture.otherMaker->asked.isEmpty());
    fixture.maker->finish(0, saysItHasSaved ? std::optional(ThumbnailMaker::Made()) : std::nullopt);
    QTRY_COMPARE((fixture.queue.runPosted(), fixture.otherMaker->running()), 1);
    const QByteArray image = fixture.files.makeFile("made", encoded(plainImage(5, 5, Qt::blue), "png"));
    fixture.otherMaker->finish(0, ThumbnailMaker::Made{ RegularFile::open(image, RegularFile::Links::refuse) });
    QTRY_VERIFY(fixture.isAnswered("a.mp4"));
    QCOMPARE(colourOf(fixture.pictures["a.mp4"]), QColor(Qt::blue));
    QCOMPARE(fixture.maker->asked.size(), 1);
}

void ThumbnailMakersTest::fewAreMadeAtATimeAndTheLastAskedFirst()
{
    ThumbnailsFixture fixture;
    fixture.maker->canMake = true;
    for (const char* name : { "1", "2", "3", "4" }) {
        fixture.files.makeFile(name, "a film");
        fixture.ask(name);
    }
    fixture.files.makeFile("image", encoded(plainImage(5, 5), "png"));
    QTRY_COMPARE((fixture.queue.runPosted(), fixture.maker->running()), 2);
    // The decoder has come past all of them once it has come past this one.
    QVERIFY(fixture.thumbnail("image"));
    QTRY_COMPARE((fixture.queue.runPosted(), fixture.queue.waitingTasks()), 1);
    QCOMPARE(fixture.maker->asked.size(), 2);
    QCOMPARE(fixture.maker->asked[0].path, fixture.files.path("4"));
    QCOMPARE(fixture.maker->asked[1].path, fixture.files.path("3"));
    fixture.maker->finish(0, std::nullopt);
    QTRY_COMPARE((fixture.queue.runPosted(), fixture.maker->asked.size()), 3);
    QCOMPARE(fixture.maker->asked[2].path, fixture.files.path("2"));
    QCOMPARE(fixture.maker->running(), 2);
}

void ThumbnailMakersTest::decodingGoesOnWhileMakersAreAtWork()
{
    ThumbnailsFixture fixture;
    fixture.maker->canMake = true;
    for (const char* name : { "1", "2", "3" }) {
        fixture.files.makeFile(name, "a film");
        fixture.ask(name);
    }
    QTRY_COMPARE((fixture.queue.runPosted(), fixture.maker->running()), 2);
    fixture.files.makeFile("image", encoded(plainImage(5, 5), "png"));
    QVERIFY(fixture.thumbnail("image"));
}

void ThumbnailMakersTest::droppedRequestDropsWhatIsBeingMade()
{
    ThumbnailsFixture fixture;
    fixture.maker->canMake = true;
    for (const char* name : { "1", "2", "3" }) {
        fixture.files.makeFile(name, "a film");
        fixture.ask(name);
    }
    QTRY_COMPARE((fixture.queue.runPosted(), fixture.maker->running()), 2);
    fixture.requests.clear();
    QCOMPARE(fixture.maker->running(), 0);
    fixture.queue.advance(1);
    QVERIFY(fixture.pictures.empty());
}

QTEST_GUILESS_MAIN(ThumbnailMakersTest)
#include "ThumbnailMakersTest.moc"
