#include "PictureServices.h"

#include "FakeMainQueue.h"
#include "FileUrl.h"
#include "ImageFiles.h"
#include "Mounts.h"
#include "SandboxProbe.h"
#include "TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <QThreadPool>

using namespace nookle;

class PictureServicesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void thumbnailsAreMadeAndSharedInTheUsersFolder();
    void registeredProgramOfTheDesktopIsUsed();
    void imagesAreConverted();

private:
    TemporaryFolder m_home;
};

void PictureServicesTest::initTestCase()
{
    qputenv("XDG_CACHE_HOME", m_home.path("cache"));
    qputenv("XDG_DATA_HOME", m_home.path("data"));
    // No session but this one's.
    qputenv("DBUS_SESSION_BUS_ADDRESS", QByteArray("unix:path=" + m_home.path("no-bus")));
    m_home.makeFolder("cache");
}

void PictureServicesTest::cleanup()
{
    QThreadPool::globalInstance()->waitForDone();
}

void PictureServicesTest::thumbnailsAreMadeAndSharedInTheUsersFolder()
{
    FakeMainQueue queue;
    PictureServices services(std::make_shared<Mounts>(m_home.path()), queue);
    std::optional<Picture> picture;
    const QUrl file = fileUrl(m_home.makeFile("a.png", encoded(plainImage(200, 100), "png")));
    const auto request = services.thumbnails().request(file, 52, 2, [&picture](const auto& made) { picture = made; });
    QTRY_VERIFY((queue.runPosted(), picture));
    QCOMPARE(picture->width, 104);
    QThreadPool::globalInstance()->waitForDone();
    QCOMPARE(QDir(QFile::decodeName(m_home.path("cache/thumbnails/normal"))).entryList(QDir::Files).size(), 1);
}

void PictureServicesTest::registeredProgramOfTheDesktopIsUsed()
{
    if (!sandboxWorks())
        QSKIP("no program can be confined here, and then none is used");
    m_home.makeFolder("data/thumbnailers");
    m_home.makeFile("data/thumbnailers/a.thumbnailer",
                    "[Thumbnailer Entry]\nExec=sh -c 'tail -n +2 %i >%o'\nMimeType=application/pdf\n");
    FakeMainQueue queue;
    PictureServices services(std::make_shared<Mounts>(m_home.path()), queue);
    std::optional<Picture> picture;
    const QUrl file = fileUrl(m_home.makeFile("a.pdf", "%PDF-1.4\n" + encoded(plainImage(20, 10), "png")));
    const auto request = services.thumbnails().request(file, 52, 2, [&picture](const auto& made) { picture = made; });
    QTRY_VERIFY((queue.runPosted(), picture));
    QCOMPARE(picture->width, 20);
}

void PictureServicesTest::imagesAreConverted()
{
    FakeMainQueue queue;
    PictureServices services(std::make_shared<Mounts>(m_home.path()), queue);
    std::optional<QByteArray> png;
    const auto conversion = services.converter().convertToPng(encoded(plainImage(20, 10), "jpeg"), 100,
                                                              [&png](const auto& converted) { png = converted; });
    QTRY_VERIFY((queue.runPosted(), png));
    QCOMPARE(QImage::fromData(*png, "png").size(), QSize(20, 10));
}

QTEST_GUILESS_MAIN(PictureServicesTest)
#include "PictureServicesTest.moc"
