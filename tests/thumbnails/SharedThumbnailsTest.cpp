#include "LinuxThumbnailGenerator.h"

#include "ThumbnailsFixture.h"

#include <QFile>

#include <fcntl.h>

#include <array>

using namespace nookle;

/// How thumbnails are shared with other programs.
class SharedThumbnailsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thumbnailOfAnotherProgramIsShown();
    void smallestThumbnailThatIsLargeEnoughIsShown_data();
    void smallestThumbnailThatIsLargeEnoughIsShown();
    void staleThumbnailIsNotShown();
    void thumbnailOfAnotherFileIsNotShown();
    void brokenThumbnailIsNotShown();
    void linkInPlaceOfAThumbnailIsNotFollowed();
    void decodedThumbnailIsSavedForOthers();
    void savedThumbnailIsShownTheNextTime();
    void temporaryFileHasNoSavedThumbnail();
    void savedThumbnailHasNoThumbnailOfItsOwn();
    void folderThatCannotBeWrittenIsNoFailure();
};

void SharedThumbnailsTest::thumbnailOfAnotherProgramIsShown()
{
    ThumbnailsFixture fixture;
    fixture.files.makeFile("film.avi", "no picture");
    fixture.saveThumbnail("film.avi", "normal", plainImage(128, 64, Qt::blue));
    const auto thumbnail = fixture.thumbnail("film.avi");
    QCOMPARE(colourOf(thumbnail), QColor(Qt::blue));
    QCOMPARE(QSize(thumbnail->width, thumbnail->height), QSize(52, 26));
}

void SharedThumbnailsTest::smallestThumbnailThatIsLargeEnoughIsShown_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<QColor>("colour");
    QTest::newRow("52") << 52 << QColor(Qt::green);
    QTest::newRow("128") << 128 << QColor(Qt::green);
    QTest::newRow("129") << 129 << QColor(Qt::blue);
    QTest::newRow("256") << 256 << QColor(Qt::blue);
    QTest::newRow("257") << 257 << QColor(Qt::yellow);
    QTest::newRow("600") << 600 << QColor(Qt::cyan);
}

void SharedThumbnailsTest::smallestThumbnailThatIsLargeEnoughIsShown()
{
    QFETCH(const int, side);
    QFETCH(const QColor, colour);
    ThumbnailsFixture fixture;
    fixture.files.makeFile("a", "no picture");
    fixture.saveThumbnail("a", "normal", plainImage(128, 128, Qt::green));
    fixture.saveThumbnail("a", "large", plainImage(256, 256, Qt::blue));
    fixture.saveThumbnail("a", "x-large", plainImage(512, 512, Qt::yellow));
    fixture.saveThumbnail("a", "xx-large", plainImage(1024, 1024, Qt::cyan));
    QCOMPARE(colourOf(fixture.thumbnail("a", side)), colour);
}

void SharedThumbnailsTest::staleThumbnailIsNotShown()
{
    ThumbnailsFixture fixture;
    fixture.files.makeFile("a", encoded(plainImage(5, 5), "png"));
    fixture.saveThumbnail("a", "normal", plainImage(5, 5, Qt::blue), 1);
    fixture.saveThumbnail("a", "large", plainImage(5, 5, Qt::green), -1);
    QCOMPARE(colourOf(fixture.thumbnail("a")), QColor(Qt::red));
}

void SharedThumbnailsTest::thumbnailOfAnotherFileIsNotShown()
{
    ThumbnailsFixture fixture;
    fixture.files.makeFile("a", encoded(plainImage(5, 5), "png"));
    fixture.saveThumbnail("a", "normal", plainImage(5, 5, Qt::blue), 0, "file:///b");
    QCOMPARE(colourOf(fixture.thumbnail("a")), QColor(Qt::red));
}

void SharedThumbnailsTest::brokenThumbnailIsNotShown()
{
    ThumbnailsFixture fixture;
    fixture.files.makeFile("a", encoded(plainImage(5, 5), "png"));
    fixture.files.makeFolder("cache/normal");
    fixture.files.makeFolder("cache/large");
    fixture.files.makeFile(fixture.savedName("a", "normal"), encoded(plainImage(5, 5, Qt::blue), "png").left(60));
    QCOMPARE(::mkfifo(fixture.files.path(fixture.savedName("a", "large")).constData(), 0600), 0);
    QCOMPARE(colourOf(fixture.thumbnail("a")), QColor(Qt::red));
}

void SharedThumbnailsTest::linkInPlaceOfAThumbnailIsNotFollowed()
{
    ThumbnailsFixture fixture;
    fixture.files.makeFile("a", encoded(plainImage(5, 5), "png"));
    fixture.saveThumbnail("a", "normal", plainImage(5, 5, Qt::blue));
    const QByteArray saved = fixture.files.path(fixture.savedName("a", "normal"));
    moveFile(saved, fixture.files.path("elsewhere"));
    makeLink(fixture.files.path("elsewhere"), saved);
    QCOMPARE(colourOf(fixture.thumbnail("a")), QColor(Qt::red));
}

void SharedThumbnailsTest::decodedThumbnailIsSavedForOthers()
{
    ThumbnailsFixture fixture;
    const QByteArray name = "a caf\xe9#.png";
    const QByteArray content = encoded(plainImage(400, 200), "png");
    fixture.files.makeFile(name, content);
    QVERIFY(fixture.thumbnail(name));
    ThumbnailsFixture::waitForSaved();

    const QByteArray saved = fixture.files.path(fixture.savedName(name, "normal"));
    QImage image;
    QVERIFY(image.load(QFile::decodeName(saved), "png"));
    QCOMPARE(image.size(), QSize(128, 64));
    struct stat status {};
    ::stat(fixture.files.path(name).constData(), &status);
    QCOMPARE(image.text(QStringLiteral("Thumb::URI")),
             QString::fromLatin1("file://" + fixture.files.path() + "/a%20caf%E9%23.png"));
    QCOMPARE(image.text(QStringLiteral("Thumb::MTime")), QString::number(status.st_mtim.tv_sec));
    QCOMPARE(image.text(QStringLiteral("Thumb::Size")), QString::number(content.size()));
    QCOMPARE(image.text(QStringLiteral("Software")), QStringLiteral("Nookle"));

    ::stat(saved.constData(), &status);
    QCOMPARE(status.st_mode & 07777, 0600U);
    ::stat(fixture.files.path("cache/normal").constData(), &status);
    QCOMPARE(status.st_mode & 07777, 0700U);
}

void SharedThumbnailsTest::savedThumbnailIsShownTheNextTime()
{
    ThumbnailsFixture fixture;
    const QByteArray path = fixture.files.makeFile("a.png", encoded(plainImage(400, 200), "png"));
    QVERIFY(fixture.thumbnail("a.png"));
    ThumbnailsFixture::waitForSaved();
    // Something else in the file, and nobody can tell.
    struct stat status {};
    ::stat(path.constData(), &status);
    fixture.files.makeFile("a.png", "no picture");
    const std::array times{ status.st_atim, status.st_mtim };
    QCOMPARE(::utimensat(AT_FDCWD, path.constData(), times.data(), 0), 0);
    QCOMPARE(colourOf(fixture.thumbnail("a.png")), QColor(Qt::red));
}

void SharedThumbnailsTest::temporaryFileHasNoSavedThumbnail()
{
    ThumbnailsFixture fixture;
    fixture.files.makeFile("temporary/a.png", encoded(plainImage(5, 5), "png"));
    QVERIFY(fixture.thumbnail("temporary/a.png"));
    ThumbnailsFixture::waitForSaved();
    QVERIFY(!QFile::exists(QFile::decodeName(fixture.files.path(fixture.savedName("temporary/a.png", "normal")))));
}

void SharedThumbnailsTest::savedThumbnailHasNoThumbnailOfItsOwn()
{
    ThumbnailsFixture fixture;
    fixture.files.makeFile("a", "no picture");
    fixture.saveThumbnail("a", "normal", plainImage(5, 5, Qt::blue));
    const QByteArray name = fixture.savedName("a", "normal");
    QCOMPARE(colourOf(fixture.thumbnail(name)), QColor(Qt::blue));
    ThumbnailsFixture::waitForSaved();
    QVERIFY(!QFile::exists(QFile::decodeName(fixture.files.path(fixture.savedName(name, "normal")))));
}

void SharedThumbnailsTest::folderThatCannotBeWrittenIsNoFailure()
{
    ThumbnailsFixture fixture;
    fixture.files.makeFile("cache", "a file where the folder should be");
    fixture.files.makeFile("a.png", encoded(plainImage(5, 5), "png"));
    QVERIFY(fixture.thumbnail("a.png"));
    ThumbnailsFixture::waitForSaved();
    QVERIFY(fixture.thumbnail("a.png"));
}

QTEST_GUILESS_MAIN(SharedThumbnailsTest)
#include "SharedThumbnailsTest.moc"
