#include "ImageDecoder.h"

#include "CapturedLog.h"
#include "FakeMainQueue.h"
#include "ImageFiles.h"
#include "OpenDescriptors.h"
#include "TemporaryFolder.h"

#include <QFile>
#include <QStringList>
#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <map>
#include <memory>

using namespace nookle;

namespace {

constexpr auto greet = "printf 'nookle-decode-1\\n' >&0\n";
constexpr auto awaitRequest = "head -c 1 <&0 >/dev/null\n";

[[nodiscard]] DecodeRequest thumbnailRequest(int side)
{
    DecodeRequest request;
    request.side = side;
    return request;
}

} // namespace

class ImageDecoderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void imageIsMadeToFit_data();
    void imageIsMadeToFit();
    void hugePictureIsScaledWhileItIsDecoded();
    void pixelsAreMultipliedByTheirAlpha();
    void photographIsTurnedUpright();
    void oneProcessServesAllInTheirOrder();
    void decoderEndsWhenItHasIdled();
    void missingDecoderFailsEverything();
    void decoderThatNeverBeginsFailsEverything();
    void decoderThatGreetsWrongFailsEverything_data();
    void decoderThatGreetsWrongFailsEverything();
    void decoderThatEndsAtOnceFailsEverything();
    void decoderThatAnswersNonsenseCostsTheImage();
    void decoderThatNeverAnswersCostsTheImage();
    void decoderThatIsKilledCostsTheImageItWasAt();
    void decoderThatCrashesOnceIsStartedAgain();
    void decoderRunsWhereNoSandboxCan();
    void sandboxThatFailedIsTriedAgain();
    void decoderCannotChangeTheFile();
    void hugeFileIsNotDecoded();
    void droppedImageIsNotDecodedAndItsFileIsClosed();
    void imageMayBeDroppedByItsCompletion();
    void completionOutlivesNoHandle();

private:
    /// Makes the decoder a shell script, outside a sandbox.
    void useScript(const QByteArray& script);
    void useDecoder(const QString& program, ImageDecoder::Confinement confinement);

    /// Asks for a thumbnail of the file named `name`, which goes into `m_results` under that name.
    void ask(const QByteArray& name, int side = 10);
    [[nodiscard]] bool isAnswered(const QByteArray& name);

    /// Of three that were asked for: only the third is still to be copied and sent then.
    [[nodiscard]] bool signalDecoder(int signal) const
    {
        return ::kill(static_cast<pid_t>(m_decoder->processId()), signal) == 0;
    }
    /// Has an image decoded, stops the decoder then, and asks for the images "a", "b" and "c".
    void askStoppedDecoder();
    void waitUntilTwoAreSent();

    std::unique_ptr<TemporaryFolder> m_folder;
    std::unique_ptr<FakeMainQueue> m_queue;
    std::unique_ptr<ImageDecoder> m_decoder;
    std::map<QByteArray, std::unique_ptr<Cancellable>> m_handles;
    std::map<QByteArray, std::optional<DecodeReply>> m_results;
    QList<QByteArray> m_order;
};

void ImageDecoderTest::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
    m_queue = std::make_unique<FakeMainQueue>();
    useDecoder(QStringLiteral(NOOKLE_DECODER), ImageDecoder::Confinement::none);
    for (const char* name : { "a", "b", "c" })
        m_folder->makeFile(name, encoded(plainImage(20, 10), "png"));
}

void ImageDecoderTest::cleanup()
{
    m_handles.clear();
    m_results.clear();
    m_order.clear();
    m_decoder.reset();
    m_queue.reset();
    m_folder.reset();
}

void ImageDecoderTest::useScript(const QByteArray& script)
{
    const QByteArray path = m_folder->makeFile("decoder", "#!/bin/sh\n" + script);
    ::chmod(path.constData(), 0700);
    useDecoder(QFile::decodeName(path), ImageDecoder::Confinement::none);
}

void ImageDecoderTest::useDecoder(const QString& program, ImageDecoder::Confinement confinement)
{
    m_decoder = std::make_unique<ImageDecoder>(*m_queue, program, confinement);
}

void ImageDecoderTest::ask(const QByteArray& name, int side)
{
    auto file = RegularFile::open(m_folder->path(name), RegularFile::Links::follow);
    m_handles[name] = m_decoder->decode(thumbnailRequest(side), std::move(file), [this, name](const auto& reply) {
        m_results[name] = reply;
        m_order.append(name);
    });
}

bool ImageDecoderTest::isAnswered(const QByteArray& name)
{
    m_queue->runPosted();
    return m_results.contains(name);
}

void ImageDecoderTest::askStoppedDecoder()
{
    m_folder->makeFile("first", encoded(plainImage(20, 10), "png"));
    ask("first");
    QTRY_VERIFY(isAnswered("first"));
    QVERIFY(signalDecoder(SIGSTOP));
    ask("a");
    ask("b");
    ask("c");
}

void ImageDecoderTest::waitUntilTwoAreSent()
{
    QTRY_COMPARE((m_queue->runPosted(), descriptorsBelow(m_folder->path())), 1);
    m_queue->runPosted();
}

void ImageDecoderTest::imageIsMadeToFit_data()
{
    QTest::addColumn<QSize>("image");
    QTest::addColumn<QSize>("picture");
    QTest::newRow("landscape") << QSize(400, 200) << QSize(100, 50);
    QTest::newRow("portrait") << QSize(200, 400) << QSize(50, 100);
    QTest::newRow("one pixel") << QSize(1, 1) << QSize(1, 1);
    QTest::newRow("small") << QSize(30, 20) << QSize(30, 20);
    QTest::newRow("exact") << QSize(100, 100) << QSize(100, 100);
    QTest::newRow("line") << QSize(5000, 1) << QSize(100, 1);
}

void ImageDecoderTest::imageIsMadeToFit()
{
    QFETCH(const QSize, image);
    QFETCH(const QSize, picture);
    for (const char* format : { "png", "jpeg" }) {
        m_folder->makeFile(format, encoded(plainImage(image.width(), image.height()), format));
        ask(format, 100);
        QTRY_VERIFY(isAnswered(format));
        const auto reply = m_results[format];
        QVERIFY(reply);
        QCOMPARE(QSize(reply->width, reply->height), picture);
        QCOMPARE(reply->pixels.size(), picture.width() * picture.height() * 4);
    }
}

void ImageDecoderTest::hugePictureIsScaledWhileItIsDecoded()
{
    QByteArray jpeg = encoded(plainImage(8, 8), "jpeg");
    // The frame's header holds the sides; what is missing of the picture then is grey.
    const qsizetype frame = jpeg.indexOf("\xff\xc0");
    QVERIFY(frame > 0);
    jpeg.replace(frame + 5, 4, QByteArray("\x75\x30\x75\x30"));
    m_folder->makeFile("huge", jpeg);
    ask("huge", 100);
    QTRY_VERIFY_WITH_TIMEOUT(isAnswered("huge"), 20'000);
    QVERIFY(m_results["huge"]);
    QCOMPARE(m_results["huge"]->width, 100);
}

void ImageDecoderTest::pixelsAreMultipliedByTheirAlpha()
{
    m_folder->makeFile("clear", encoded(plainImage(1, 1, QColor(255, 0, 0, 128)), "png"));
    ask("clear");
    QTRY_VERIFY(isAnswered("clear"));
    quint32 pixel = 0;
    memcpy(&pixel, m_results["clear"]->pixels.constData(), sizeof pixel);
    QCOMPARE(pixel, 0x80800000U);
}

void ImageDecoderTest::photographIsTurnedUpright()
{
    QByteArray jpeg = encoded(plainImage(20, 10), "jpeg");
    // Exif data that says: the right side of the picture is its top.
    jpeg.insert(2,
                QByteArray("\xff\xe1\x00\x22"
                           "Exif\0\0MM\0\x2a\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0",
                           36));
    m_folder->makeFile("photograph", jpeg);
    ask("photograph", 100);
    QTRY_VERIFY(isAnswered("photograph"));
    QCOMPARE(QSize(m_results["photograph"]->width, m_results["photograph"]->height), QSize(10, 20));
}

void ImageDecoderTest::oneProcessServesAllInTheirOrder()
{
    QList<QByteArray> names;
    for (int index = 0; index < 100; ++index) {
        names.append(QByteArray::number(index));
        m_folder->makeFile(names.last(), encoded(plainImage(20, 10), "png"));
        ask(names.last());
    }
    QCOMPARE(m_decoder->processId(), 0);
    QTRY_VERIFY((m_queue->runPosted(), m_decoder->processId() != 0));
    const qint64 process = m_decoder->processId();
    QTRY_VERIFY(isAnswered(names.last()));
    QCOMPARE(m_decoder->processId(), process);
    QCOMPARE(m_order, names);
    for (const auto& [name, reply] : m_results)
        QVERIFY(reply);
}

void ImageDecoderTest::decoderEndsWhenItHasIdled()
{
    ask("a");
    QTRY_VERIFY(isAnswered("a"));
    m_queue->advance(9.999);
    QVERIFY(m_decoder->processId() != 0);
    m_queue->advance(0.001);
    QCOMPARE(m_decoder->processId(), 0);
    ask("b");
    QTRY_VERIFY(isAnswered("b"));
    QVERIFY(m_results["b"]);
}

void ImageDecoderTest::missingDecoderFailsEverything()
{
    for (const auto confinement : { ImageDecoder::Confinement::none, ImageDecoder::Confinement::sandbox }) {
        const CapturedLog log;
        useDecoder(QStringLiteral("/does/not/exist"), confinement);
        m_results.clear();
        ask("a");
        ask("b");
        ask("c");
        QTRY_VERIFY(isAnswered("c"));
        QCOMPARE(m_results,
                 (std::map<QByteArray, std::optional<DecodeReply>>{
                     { "a", std::nullopt }, { "b", std::nullopt }, { "c", std::nullopt } }));
        QVERIFY(log.lines().last().endsWith(QStringLiteral("the image decoder does not start: /does/not/exist")));
    }
}

void ImageDecoderTest::decoderThatNeverBeginsFailsEverything()
{
    const CapturedLog log;
    useScript("exec sleep 1000\n");
    ask("a");
    QTRY_VERIFY((m_queue->runPosted(), m_decoder->processId() != 0));
    // Later, so that the time for copying it does not end at the same moment.
    m_queue->advance(1);
    ask("b");
    m_queue->advance(3.999);
    QVERIFY(m_results.empty());
    m_queue->advance(0.001);
    QCOMPARE(m_order, (QList<QByteArray>{ "a", "b" }));
    QCOMPARE(m_results["a"], std::nullopt);
    QCOMPARE(m_decoder->processId(), 0);
}

void ImageDecoderTest::decoderThatGreetsWrongFailsEverything_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("other words") << QByteArray("echo Hello >&0; exec sleep 1000\n");
    QTest::newRow("too much") << QByteArray("printf 'nookle-decode-1\\nHello' >&0; exec sleep 1000\n");
    QTest::newRow("without end") << QByteArray("exec yes >&0\n");
}

void ImageDecoderTest::decoderThatGreetsWrongFailsEverything()
{
    QFETCH(const QByteArray, script);
    const CapturedLog log;
    useScript(script);
    ask("a");
    ask("b");
    QTRY_VERIFY(isAnswered("b"));
    QCOMPARE(m_results["a"], std::nullopt);
    QCOMPARE(m_results["b"], std::nullopt);
    QCOMPARE(m_decoder->processId(), 0);
}

void ImageDecoderTest::decoderThatEndsAtOnceFailsEverything()
{
    useScript(greet);
    ask("a");
    ask("b");
    QTRY_VERIFY(isAnswered("b"));
    QCOMPARE(m_results["a"], std::nullopt);
    QCOMPARE(m_results["b"], std::nullopt);
}

void ImageDecoderTest::decoderThatAnswersNonsenseCostsTheImage()
{
    useScript(QByteArray("if mkdir \"$0.begun\"; then\n") + greet + awaitRequest
              + "printf 'no picture, but long enough to be the header of one' >&0\n"
                "exec sleep 1000\nfi\nexec " NOOKLE_DECODER "\n");
    ask("a");
    ask("b");
    QTRY_VERIFY(isAnswered("b"));
    QCOMPARE(m_results["a"], std::nullopt);
    QVERIFY(m_results["b"]);
}

void ImageDecoderTest::decoderThatNeverAnswersCostsTheImage()
{
    useScript(QByteArray("if mkdir \"$0.begun\"; then\n") + greet + awaitRequest
              + "mkdir \"$0.asked\"\nexec sleep 1000\nfi\nexec " NOOKLE_DECODER "\n");
    ask("a");
    ask("b");
    QTRY_VERIFY((m_queue->runPosted(), QFile::exists(QFile::decodeName(m_folder->path("decoder.asked")))));
    QTRY_COMPARE(descriptorsBelow(m_folder->path()), 0);
    m_queue->advance(4.999);
    QVERIFY(m_results.empty());
    m_queue->advance(0.001);
    QCOMPARE(m_order, QList<QByteArray>{ "a" });
    QCOMPARE(m_results["a"], std::nullopt);
    QTRY_VERIFY(isAnswered("b"));
    QVERIFY(m_results["b"]);
}

void ImageDecoderTest::decoderThatIsKilledCostsTheImageItWasAt()
{
    askStoppedDecoder();
    waitUntilTwoAreSent();
    QVERIFY(signalDecoder(SIGKILL));
    QTRY_VERIFY(isAnswered("c"));
    QCOMPARE(m_order, (QList<QByteArray>{ "first", "a", "b", "c" }));
    QCOMPARE(m_results["a"], std::nullopt);
    QVERIFY(m_results["b"]);
    QVERIFY(m_results["c"]);
}

void ImageDecoderTest::decoderThatCrashesOnceIsStartedAgain()
{
    useScript(QByteArray("if mkdir \"$0.begun\"; then\n") + greet + awaitRequest
              + "kill -SEGV $$\nfi\nexec " NOOKLE_DECODER "\n");
    ask("a");
    ask("b");
    ask("c");
    QTRY_VERIFY(isAnswered("c"));
    QCOMPARE(m_results["a"], std::nullopt);
    QVERIFY(m_results["b"]);
    QVERIFY(m_results["c"]);
}

void ImageDecoderTest::decoderRunsWhereNoSandboxCan()
{
    const QByteArray path = qgetenv("PATH");
    ::chmod(m_folder->makeFile("bwrap", "#!/bin/sh\nexit 1\n").constData(), 0700);
    qputenv("PATH", QByteArray(m_folder->path() + ':' + path));
    const CapturedLog log;
    useDecoder(QStringLiteral(NOOKLE_DECODER), ImageDecoder::Confinement::sandbox);
    ask("a");
    QTRY_VERIFY(isAnswered("a"));
    qputenv("PATH", path);
    QVERIFY(m_results["a"]);
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(log.lines().first().endsWith(
        QStringLiteral("the image decoder does not start in a sandbox, and runs without")));
}

void ImageDecoderTest::sandboxThatFailedIsTriedAgain()
{
    const QByteArray path = qgetenv("PATH");
    // Fails for the first two times, and from then on starts what it is to confine.
    ::chmod(m_folder
                ->makeFile("bwrap",
                           "#!/bin/sh\nmkdir \"$0.1\" && exit 1\nmkdir \"$0.2\" && exit 1\n"
                           "mkdir \"$0.3\"\nfor program; do :; done\nexec \"$program\"\n")
                .constData(),
            0700);
    qputenv("PATH", QByteArray(m_folder->path() + ':' + path));
    const CapturedLog log;
    useDecoder(QStringLiteral(NOOKLE_DECODER), ImageDecoder::Confinement::sandbox);
    ask("a");
    QTRY_VERIFY(isAnswered("a"));
    const QString isConfined = QFile::decodeName(m_folder->path("bwrap.3"));
    const bool wasConfined = QFile::exists(isConfined);
    m_queue->advance(ImageDecoder::longestIdling);
    ask("b");
    QTRY_VERIFY(isAnswered("b"));
    qputenv("PATH", path);
    QVERIFY(!wasConfined);
    QVERIFY(QFile::exists(isConfined));
    QVERIFY(m_results["a"]);
    QVERIFY(m_results["b"]);
    QCOMPARE(log.lines().size(), 1);
}

void ImageDecoderTest::decoderCannotChangeTheFile()
{
    useDecoder(QStringLiteral(NOOKLE_HOSTILE_DECODER), ImageDecoder::Confinement::none);
    const QByteArray before = encoded(plainImage(20, 10), "png");
    const QByteArray path = m_folder->makeFile("picture", before);
    ::chmod(path.constData(), 0640);
    ask("picture");
    QTRY_VERIFY(isAnswered("picture"));
    // The decoder says that it has tried.
    QVERIFY(m_results["picture"]);
    QFile file(QFile::decodeName(path));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), before);
    struct stat status {};
    QCOMPARE(::stat(path.constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777U, 0640U);
}

void ImageDecoderTest::hugeFileIsNotDecoded()
{
    for (const char* name : { "a", "b" }) {
        const off_t size = ImageDecoder::longestFile + (*name == 'b' ? 1 : -(off_t{ 255 } << 20));
        QCOMPARE(::truncate(m_folder->path(name).constData(), size), 0);
        ask(name);
        QTRY_VERIFY(isAnswered(name));
    }
    QVERIFY(m_results["a"]);
    QVERIFY(!m_results["b"]);
}

void ImageDecoderTest::droppedImageIsNotDecodedAndItsFileIsClosed()
{
    askStoppedDecoder();
    QCOMPARE(descriptorsBelow(m_folder->path()), 3);
    waitUntilTwoAreSent();
    m_handles.erase("c");
    QCOMPARE(descriptorsBelow(m_folder->path()), 0);
    m_handles.erase("b");
    QVERIFY(signalDecoder(SIGCONT));
    QTRY_VERIFY(isAnswered("a"));
    m_folder->makeFile("last", encoded(plainImage(20, 10), "png"));
    ask("last");
    QTRY_VERIFY(isAnswered("last"));
    QCOMPARE(m_order, (QList<QByteArray>{ "first", "a", "last" }));
    QCOMPARE(descriptorsBelow(m_folder->path()), 0);
}

void ImageDecoderTest::imageMayBeDroppedByItsCompletion()
{
    bool isDone = false;
    std::unique_ptr<Cancellable> handle;
    handle = m_decoder->decode(thumbnailRequest(10), RegularFile::open(m_folder->path("a"), RegularFile::Links::follow),
                               [&](const auto& /*reply*/) {
                                   handle.reset();
                                   m_decoder.reset();
                                   isDone = true;
                               });
    QTRY_VERIFY((m_queue->runPosted(), isDone));
}

void ImageDecoderTest::completionOutlivesNoHandle()
{
    // Answered already, but not told yet.
    ask("does not exist");
    m_handles.clear();
    m_queue->advance(1);
    QVERIFY(m_results.empty());
}

QTEST_GUILESS_MAIN(ImageDecoderTest)
#include "ImageDecoderTest.moc"
