#include "ThumbnailCache.h"

#include <QTest>

#include <gio/gio.h>

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

QTEST_GUILESS_MAIN(ThumbnailCacheTest)
#include "ThumbnailCacheTest.moc"
