#include "LinuxThumbnailGenerator.h"

#include "OpenDescriptors.h"
#include "ThumbnailsFixture.h"

#include <sys/fsuid.h>
#include <unistd.h>

#include <cmath>
#include <limits>

using namespace nookle;

class LinuxThumbnailGeneratorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thumbnailFitsIntoThePixelsOfItsSquare_data();
    void thumbnailFitsIntoThePixelsOfItsSquare();
    void fileNameMayHoldAnyBytes_data();
    void fileNameMayHoldAnyBytes();
    void contentDecidesWhatIsAnImage_data();
    void contentDecidesWhatIsAnImage();
    void brokenImageHasNoThumbnail_data();
    void brokenImageHasNoThumbnail();
    void truncatedPhotographShowsWhatThereIs();
    void whatIsNoFileHasNoThumbnail();
    void unreadableFileHasNoThumbnail();
    void fileThatIsDeletedBeforeItsTurnHasNoThumbnail();
    void linkShowsWhatItLeadsTo();
    void lastAskedComesFirst();
    void completionIsNotCalledFromWithinTheRequest();
    void droppedRequestLeavesTheQueue();
    void requestMayBeDroppedByItsCompletion();
    void thumbnailsMayEndWithRequestsUnderWay();
};

void LinuxThumbnailGeneratorTest::thumbnailFitsIntoThePixelsOfItsSquare_data()
{
    QTest::addColumn<QSize>("image");
    QTest::addColumn<double>("size");
    QTest::addColumn<double>("scale");
    QTest::addColumn<QSize>("picture");
    const double infinity = std::numeric_limits<double>::infinity();
    QTest::newRow("plain") << QSize(400, 200) << 52.0 << 1.0 << QSize(52, 26);
    QTest::newRow("fine display") << QSize(400, 200) << 52.0 << 2.0 << QSize(104, 52);
    QTest::newRow("fractional scale") << QSize(400, 400) << 52.0 << 1.25 << QSize(65, 65);
    QTest::newRow("small image") << QSize(10, 20) << 52.0 << 2.0 << QSize(10, 20);
    QTest::newRow("one pixel") << QSize(1, 1) << 52.0 << 1.0 << QSize(1, 1);
    QTest::newRow("no size") << QSize(10, 10) << 0.0 << 1.0 << QSize(1, 1);
    QTest::newRow("negative size") << QSize(10, 10) << -5.0 << 1.0 << QSize(1, 1);
    QTest::newRow("endless size") << QSize(10, 10) << infinity << 1.0 << QSize(1, 1);
    QTest::newRow("largest size") << QSize(2000, 100) << 1e9 << 1.0 << QSize(1024, 51);
}

void LinuxThumbnailGeneratorTest::thumbnailFitsIntoThePixelsOfItsSquare()
{
    QFETCH(const QSize, image);
    QFETCH(const double, size);
    QFETCH(const double, scale);
    QFETCH(const QSize, picture);
    ThumbnailsFixture fixture;
    fixture.files.makeFile("a.png", encoded(plainImage(image.width(), image.height()), "png"));
    // The second time it comes from what the first has saved.
    for (int time = 0; time < 2; ++time) {
        const auto thumbnail = fixture.thumbnail("a.png", size, scale);
        QVERIFY(thumbnail);
        QCOMPARE(QSize(thumbnail->width, thumbnail->height), picture);
        QCOMPARE(thumbnail->pixels.size(), picture.width() * picture.height() * 4);
        QCOMPARE(colourOf(thumbnail), QColor(Qt::red));
    }
}

void LinuxThumbnailGeneratorTest::fileNameMayHoldAnyBytes_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("not UTF-8") << QByteArray("caf\xe9\xff.png");
    QTest::newRow("percent sign") << QByteArray("50%41.png");
    QTest::newRow("number sign") << QByteArray("a#b?c.png");
    QTest::newRow("newline") << QByteArray("a\nb\tc.png");
    QTest::newRow("semicolon") << QByteArray("a;b[c]\\d.png");
}

void LinuxThumbnailGeneratorTest::fileNameMayHoldAnyBytes()
{
    QFETCH(const QByteArray, name);
    ThumbnailsFixture fixture;
    fixture.files.makeFile(name, encoded(plainImage(5, 5), "png"));
    QCOMPARE(colourOf(fixture.thumbnail(name)), QColor(Qt::red));
    fixture.saveThumbnail(name, "normal", plainImage(5, 5, Qt::blue));
    QCOMPARE(colourOf(fixture.thumbnail(name)), QColor(Qt::blue));
}

void LinuxThumbnailGeneratorTest::contentDecidesWhatIsAnImage_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isImage");
    const QByteArray page = "<!DOCTYPE html><html><head><title>Picture</title></head><body></body></html>";
    QTest::newRow("page as PNG") << QByteArray("a.png") << page << false;
    QTest::newRow("page as SVG") << QByteArray("a.svg") << page << false;
    QTest::newRow("text as JPEG") << QByteArray("a.jpg") << QByteArray("Hello") << false;
    QTest::newRow("nothing as PNG") << QByteArray("a.png") << QByteArray() << false;
    QTest::newRow("PNG as text") << QByteArray("a.txt") << encoded(plainImage(5, 5), "png") << true;
    QTest::newRow("PNG as JPEG") << QByteArray("a.jpg") << encoded(plainImage(5, 5), "png") << true;
    QTest::newRow("GIF that moves") << QByteArray("a.gif") << animatedGif() << true;
    QTest::newRow("drawing") << QByteArray("a.svg")
                             << QByteArray("<?xml version=\"1.0\"?><!-- a --><svg xmlns=\"http://www.w3.org/2000/svg\" "
                                           "viewBox=\"0 0 9 9\"><path fill=\"red\" d=\"M0 0h9v9H0z\"/></svg>")
                             << true;
}

void LinuxThumbnailGeneratorTest::contentDecidesWhatIsAnImage()
{
    QFETCH(const QByteArray, name);
    QFETCH(const QByteArray, content);
    QFETCH(const bool, isImage);
    ThumbnailsFixture fixture;
    fixture.files.makeFile(name, content);
    QCOMPARE(colourOf(fixture.thumbnail(name)), isImage ? QColor(Qt::red) : QColor());
}

void LinuxThumbnailGeneratorTest::brokenImageHasNoThumbnail_data()
{
    QTest::addColumn<QByteArray>("content");
    const QByteArray png = encoded(plainImage(100, 100), "png");
    QTest::newRow("truncated PNG") << png.left(png.size() / 2);
    QTest::newRow("PNG without pixels") << png.left(33);
    QTest::newRow("PNG signature") << png.left(8);
    QTest::newRow("truncated JPEG header") << encoded(plainImage(100, 100), "jpeg").left(50);
    QTest::newRow("huge PNG") << blackPng(30'000);
}

void LinuxThumbnailGeneratorTest::brokenImageHasNoThumbnail()
{
    QFETCH(const QByteArray, content);
    ThumbnailsFixture fixture;
    fixture.files.makeFile("broken", content);
    fixture.files.makeFile("good", encoded(plainImage(5, 5), "png"));
    QCOMPARE(fixture.thumbnail("broken"), std::nullopt);
    QVERIFY(fixture.thumbnail("good"));
}

void LinuxThumbnailGeneratorTest::truncatedPhotographShowsWhatThereIs()
{
    ThumbnailsFixture fixture;
    const QByteArray jpeg = encoded(plainImage(1000, 1000), "jpeg");
    fixture.files.makeFile("photograph.jpg", jpeg.left(jpeg.size() / 2));
    const auto thumbnail = fixture.thumbnail("photograph.jpg");
    QVERIFY(thumbnail);
    QVERIFY(colourOf(thumbnail).red() > 250 && colourOf(thumbnail).green() < 5);
}

void LinuxThumbnailGeneratorTest::whatIsNoFileHasNoThumbnail()
{
    ThumbnailsFixture fixture;
    fixture.files.makeFolder("folder.png");
    QCOMPARE(::mkfifo(fixture.files.path("fifo.png").constData(), 0600), 0);
    makeLink(fixture.files.path("nothing"), fixture.files.path("link.png"));
    makeLink("/dev/zero", fixture.files.path("device.png"));
    fixture.maker->canMake = true;
    for (const char* name : { "folder.png", "fifo.png", "link.png", "device.png", "missing.png" })
        QCOMPARE(fixture.thumbnail(name), std::nullopt);
    std::optional<Picture> picture = Picture();
    const auto request = fixture.thumbnails->request(QUrl(QStringLiteral("https://example.com/a.png")), 52, 1,
                                                     [&picture](const auto& result) { picture = result; });
    QTRY_VERIFY((fixture.queue.runPosted(), !picture));
    QVERIFY(fixture.maker->asked.isEmpty());
}

void LinuxThumbnailGeneratorTest::unreadableFileHasNoThumbnail()
{
    ThumbnailsFixture fixture;
    fixture.maker->canMake = true;
    const QByteArray path = fixture.files.makeFile("a.png", encoded(plainImage(5, 5), "png"));
    ::chmod(path.constData(), 0);
    // The administrator may read everything, but somebody else may not.
    static constexpr uid_t somebody = 65'534;
    const int user = ::geteuid() == 0 ? ::setfsuid(somebody) : -1;
    const auto thumbnail = fixture.thumbnail("a.png");
    if (user != -1)
        ::setfsuid(static_cast<uid_t>(user));
    QCOMPARE(thumbnail, std::nullopt);
    QVERIFY(fixture.maker->asked.isEmpty());
}

void LinuxThumbnailGeneratorTest::fileThatIsDeletedBeforeItsTurnHasNoThumbnail()
{
    ThumbnailsFixture fixture;
    for (const char* name : { "a", "b", "c" })
        fixture.files.makeFile(name, encoded(plainImage(5, 5), "png"));
    fixture.ask("a");
    fixture.ask("b");
    fixture.ask("c");
    deleteFile(fixture.files.path("a"));
    QTRY_VERIFY(fixture.isAnswered("a") && fixture.isAnswered("b") && fixture.isAnswered("c"));
    QCOMPARE(fixture.pictures["a"], std::nullopt);
    QVERIFY(fixture.pictures["b"]);
    QVERIFY(fixture.pictures["c"]);
}

void LinuxThumbnailGeneratorTest::linkShowsWhatItLeadsTo()
{
    ThumbnailsFixture fixture;
    makeLink(fixture.files.makeFile("a.png", encoded(plainImage(5, 5), "png")), fixture.files.path("link.png"));
    QCOMPARE(colourOf(fixture.thumbnail("link.png")), QColor(Qt::red));
}

void LinuxThumbnailGeneratorTest::lastAskedComesFirst()
{
    ThumbnailsFixture fixture;
    for (const char* name : { "1", "2", "3", "4", "5" }) {
        fixture.files.makeFile(name, encoded(plainImage(5, 5), "png"));
        fixture.ask(name);
    }
    QTRY_VERIFY(fixture.isAnswered("1"));
    QCOMPARE(fixture.order, (QList<QByteArray>{ "5", "4", "3", "2", "1" }));
}

void LinuxThumbnailGeneratorTest::completionIsNotCalledFromWithinTheRequest()
{
    ThumbnailsFixture fixture;
    fixture.ask("missing");
    QVERIFY(fixture.pictures.empty());
    QTRY_VERIFY(fixture.isAnswered("missing"));
}

void LinuxThumbnailGeneratorTest::droppedRequestLeavesTheQueue()
{
    ThumbnailsFixture fixture;
    for (const char* name : { "1", "2", "3", "4" }) {
        fixture.files.makeFile(name, encoded(plainImage(5, 5), "png"));
        fixture.ask(name);
    }
    fixture.queue.runPosted();
    QCOMPARE(descriptorsBelow(fixture.files.path()), 2);
    fixture.requests.erase("4");
    fixture.requests.erase("2");
    QTRY_VERIFY(fixture.isAnswered("1"));
    QCOMPARE(fixture.order, (QList<QByteArray>{ "3", "1" }));
}

void LinuxThumbnailGeneratorTest::requestMayBeDroppedByItsCompletion()
{
    ThumbnailsFixture fixture;
    const QUrl file = fileUrl(fixture.files.makeFile("a", encoded(plainImage(5, 5), "png")));
    bool isDone = false;
    std::unique_ptr<Cancellable> request;
    request = fixture.thumbnails->request(file, 52, 1, [&](const auto& /*picture*/) {
        request.reset();
        fixture.thumbnails.reset();
        isDone = true;
    });
    QTRY_VERIFY((fixture.queue.runPosted(), isDone));
}

void LinuxThumbnailGeneratorTest::thumbnailsMayEndWithRequestsUnderWay()
{
    ThumbnailsFixture fixture;
    fixture.files.makeFile("a", encoded(plainImage(5, 5), "png"));
    fixture.ask("a");
    fixture.queue.runPosted();
    fixture.ask("b");
    fixture.thumbnails.reset();
    fixture.queue.advance(1);
    QVERIFY(fixture.pictures.empty());
}

QTEST_GUILESS_MAIN(LinuxThumbnailGeneratorTest)
#include "LinuxThumbnailGeneratorTest.moc"
