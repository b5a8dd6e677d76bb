#include "ThumbnailCache.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>
#include <QThreadPool>

#include <gio/gio.h>
#include <sys/resource.h>

#include <csignal>

#include <memory>

using namespace nookle;

class ThumbnailCacheTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void addressIsTheOneThatAllProgramsUse();
    void savedSizeHasRoomForTheWanted_data();
    void savedSizeHasRoomForTheWanted();
    void temporaryAndSavedFilesAreNotTaken_data();
    void temporaryAndSavedFilesAreNotTaken();
    void aThumbnailThatDoesNotFitOnTheDiskLeavesNothing_data();
    void aThumbnailThatDoesNotFitOnTheDiskLeavesNothing();
};

void ThumbnailCacheTest::addressIsTheOneThatAllProgramsUse()
{
    for (int byte = 1; byte < 256; ++byte) {
        const QByteArray path = QByteArray("/folder/a") + static_cast<char>(byte) + "z.png";
        const std::unique_ptr<char, decltype(&g_free)> uri(g_filename_to_uri(path.constData(), nullptr, nullptr),
                                                           &g_free);
        QCOMPARE(ThumbnailCache::uri(path), QByteArray(uri.get()));
    }
}

void ThumbnailCacheTest::savedSizeHasRoomForTheWanted_data()
{
    QTest::addColumn<int>("side");
    QTest::addColumn<int>("saved");
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("one pixel") << 1 << 128 << QByteArray("normal");
    QTest::newRow("normal") << 128 << 128 << QByteArray("normal");
    QTest::newRow("above normal") << 129 << 256 << QByteArray("large");
    QTest::newRow("large") << 256 << 256 << QByteArray("large");
    QTest::newRow("above large") << 257 << 512 << QByteArray("x-large");
    QTest::newRow("largest") << 1024 << 1024 << QByteArray("xx-large");
    QTest::newRow("too large") << 1025 << 0 << QByteArray();
}

void ThumbnailCacheTest::savedSizeHasRoomForTheWanted()
{
    QFETCH(const int, side);
    QFETCH(const int, saved);
    QFETCH(const QByteArray, name);
    QCOMPARE(ThumbnailCache::savedSide(side), saved);
    QCOMPARE(ThumbnailCache::sizeName(saved), name);
}

void ThumbnailCacheTest::temporaryAndSavedFilesAreNotTaken_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("home") << QByteArray("/home/user/a.png") << true;
    QTest::newRow("saved") << QByteArray("/home/user/.cache/thumbnails/normal/a.png") << false;
    QTest::newRow("beside the saved") << QByteArray("/home/user/.cache/thumbnails2/a.png") << true;
    QTest::newRow("temporary") << QByteArray("/tmp/a.png") << false;
    QTest::newRow("beside the temporary") << QByteArray("/tmpfolder/a.png") << true;
}

void ThumbnailCacheTest::temporaryAndSavedFilesAreNotTaken()
{
    QFETCH(const QByteArray, path);
    QFETCH(const bool, isTaken);
    QCOMPARE(ThumbnailCache("/home/user/.cache/thumbnails", "/tmp").takes(path), isTaken);
    QCOMPARE(ThumbnailCache("/home/user/.cache/thumbnails", "/tmp/").takes(path), isTaken);
}

void ThumbnailCacheTest::aThumbnailThatDoesNotFitOnTheDiskLeavesNothing_data()
{
    QTest::addColumn<qsizetype>("size");
    // The toolkit keeps a small one back until the file is closed.
    QTest::newRow("small") << qsizetype{ 2000 };
    QTest::newRow("large") << qsizetype{ 200'000 };
}

void ThumbnailCacheTest::aThumbnailThatDoesNotFitOnTheDiskLeavesNothing()
{
    QFETCH(const qsizetype, size);
    const QTemporaryDir home;
    const ThumbnailCache cache(QFile::encodeName(home.filePath(QStringLiteral("thumbnails"))), "/tmp/none");
    const QByteArray uri = ThumbnailCache::uri("/home/user/a.png");
    const QByteArray png(size, 'a');
    const auto save = [&] {
        cache.save(uri, 128, png);
        QVERIFY(QThreadPool::globalInstance()->waitForDone());
    };
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual{};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &usual), 0);
    const rlimit little{ 1000, usual.rlim_max };
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &little), 0);
    save();
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &usual), 0);
    const QDir folder(home.filePath(QStringLiteral("thumbnails/normal")));
    QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden), QStringList());
    save();
    QCOMPARE(folder.entryList(QDir::Files | QDir::Hidden).size(), 1);
    QCOMPARE(QFileInfo(folder.filePath(folder.entryList(QDir::Files).first())).size(), size);
}

QTEST_GUILESS_MAIN(ThumbnailCacheTest)
#include "ThumbnailCacheTest.moc"
