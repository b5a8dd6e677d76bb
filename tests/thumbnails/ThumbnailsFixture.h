#pragma once

#include "FakeMainQueue.h"
#include "FakeThumbnailMaker.h"
#include "FileUrl.h"
#include "ImageDecoder.h"
#include "ImageFiles.h"
#include "LinuxThumbnailGenerator.h"
#include "TemporaryFolder.h"

#include <QCryptographicHash>
#include <QString>
#include <QTest>
#include <QThreadPool>

#include <sys/stat.h>

#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace nookle {

/// ThumbnailGenerator of files in a folder of their own, by the real decoder, with a cache of their own and two makers.
class ThumbnailsFixture {
public:
    ThumbnailsFixture()
    {
        auto firstMaker = std::make_unique<FakeThumbnailMaker>();
        auto secondMaker = std::make_unique<FakeThumbnailMaker>();
        maker = firstMaker.get();
        otherMaker = secondMaker.get();
        std::vector<std::unique_ptr<ThumbnailMaker>> makers;
        makers.push_back(std::move(firstMaker));
        makers.push_back(std::move(secondMaker));
        files.makeFolder("temporary");
        thumbnails = std::make_unique<LinuxThumbnailGenerator>(
            queue, decoder, ThumbnailCache(cacheFolder(), files.path("temporary")), std::move(makers));
        maker->canMake = false;
        otherMaker->canMake = false;
    }

    ~ThumbnailsFixture() { waitForSaved(); }
    ThumbnailsFixture(const ThumbnailsFixture&) = delete;
    ThumbnailsFixture& operator=(const ThumbnailsFixture&) = delete;

    /// Waits until all that has been decoded is saved.
    static void waitForSaved() { QThreadPool::globalInstance()->waitForDone(); }

    [[nodiscard]] QByteArray cacheFolder() const { return files.path("cache"); }

    /// Asks for a thumbnail of the file `name` whose pixels are points, unless `scale` says otherwise.
    void ask(const QByteArray& name, double size = 52, double scale = 1)
    {
        requests[name] =
            thumbnails->request(fileUrl(files.path(name)), size, scale, [this, name](std::optional<Picture> picture) {
                pictures[name] = std::move(picture);
                order.append(name);
            });
    }

    [[nodiscard]] bool isAnswered(const QByteArray& name)
    {
        queue.runPosted();
        return pictures.contains(name);
    }

    /// The thumbnail of the file `name`, asked for and waited for.
    [[nodiscard]] std::optional<Picture> thumbnail(const QByteArray& name, double size = 52, double scale = 1)
    {
        pictures.erase(name);
        ask(name, size, scale);
        if (!QTest::qWaitFor([this, name] { return isAnswered(name); }, 20'000))
            qFatal("a thumbnail has no end");
        return pictures.at(name);
    }

    /// Puts a thumbnail of the file `name` into the cache, as another program would.
    void saveThumbnail(const QByteArray& name, const QByteArray& size, QImage image, qint64 age = 0,
                       const QByteArray& uri = QByteArray()) const
    {
        waitForSaved();
        struct stat status {};
        ::stat(files.path(name).constData(), &status);
        const QByteArray ownUri = ThumbnailCache::uri(files.path(name));
        image.setText(QStringLiteral("Thumb::URI"), QString::fromLatin1(uri.isEmpty() ? ownUri : uri));
        image.setText(QStringLiteral("Thumb::MTime"), QString::number(status.st_mtim.tv_sec - age));
        files.makeFolder("cache/" + size);
        files.makeFile(savedName(name, size), encoded(image, "png"));
    }

    /// Where the thumbnail of the file `name` is saved, below the folder of all files.
    [[nodiscard]] QByteArray savedName(const QByteArray& name, const QByteArray& size) const;

    TemporaryFolder files;
    FakeMainQueue queue;
    ImageDecoder decoder{ queue, QStringLiteral(NOOKLE_DECODER) };
    FakeThumbnailMaker* maker = nullptr;
    FakeThumbnailMaker* otherMaker = nullptr;
    std::unique_ptr<LinuxThumbnailGenerator> thumbnails;
    std::map<QByteArray, std::unique_ptr<Cancellable>> requests;
    std::map<QByteArray, std::optional<Picture>> pictures;
    QList<QByteArray> order;
};

inline QByteArray ThumbnailsFixture::savedName(const QByteArray& name, const QByteArray& size) const
{
    const QByteArray uri = ThumbnailCache::uri(files.path(name));
    return "cache/" + size + '/' + QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex() + ".png";
}

/// The colour of the pixel at the top left.
[[nodiscard]] inline QColor colourOf(const std::optional<Picture>& picture)
{
    return picture ? QColor::fromRgba(*reinterpret_cast<const QRgb*>(picture->pixels.constData())) : QColor();
}

} // namespace nookle
