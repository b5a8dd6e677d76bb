#include "ThumbnailCache.h"

#include <QCryptographicHash>
#include <QFile>
#include <QSaveFile>
#include <QThreadPool>

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <utility>

namespace nookle {

namespace {

struct Size {
    int side;
    const char* name;
};

constexpr std::array sizes{ Size{ 128, "normal" }, Size{ 256, "large" }, Size{ 512, "x-large" },
                            Size{ 1024, "xx-large" } };

[[nodiscard]] bool isBelow(const QByteArray& path, const QByteArray& folder)
{
    return !folder.isEmpty() && path.startsWith(folder)
        && (folder.endsWith('/') || path.mid(folder.size()).startsWith('/'));
}

void write(const QByteArray& folder, const QByteArray& name, const QByteArray& png)
{
    // Makes all missing folders of the path.
    for (qsizetype end = folder.indexOf('/', 1); end != -1; end = folder.indexOf('/', end + 1))
        ::mkdir(folder.left(end).constData(), 0700);
    ::mkdir(folder.constData(), 0700);
    QSaveFile file(QFile::decodeName(folder + '/' + name));
    if (!file.open(QIODevice::WriteOnly))
        return;
    file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    // A file that is closed with bytes left to write would be put in place all the same.
    if (file.write(png) == png.size() && file.flush())
        file.commit();
}

} // namespace

ThumbnailCache::ThumbnailCache(QByteArray folder, QByteArray temporaryFolder)
    : m_folder(std::move(folder))
    , m_temporaryFolder(std::move(temporaryFolder))
{
}

QByteArray ThumbnailCache::uri(const QByteArray& path)
{
    return "file://" + path.toPercentEncoding("/!$&'()*+,:=@");
}

int ThumbnailCache::savedSide(int side)
{
    const auto* size = std::find_if(sizes.begin(), sizes.end(), [side](const Size& each) { return each.side >= side; });
    return size == sizes.end() ? 0 : size->side;
}

QByteArray ThumbnailCache::sizeName(int savedSide)
{
    const auto* size =
        std::find_if(sizes.begin(), sizes.end(), [savedSide](const Size& each) { return each.side == savedSide; });
    return size == sizes.end() ? QByteArray() : QByteArray(size->name);
}

std::vector<RegularFile> ThumbnailCache::open(const QByteArray& uri, int side) const
{
    std::vector<RegularFile> files;
    for (const Size& size : sizes) {
        if (size.side < side)
            continue;
        auto file = RegularFile::open(sizeFolder(size.side) + '/' + fileName(uri), RegularFile::Links::refuse);
        if (file)
            files.push_back(std::move(*file));
    }
    return files;
}

bool ThumbnailCache::takes(const QByteArray& path) const
{
    return !isBelow(path, m_folder) && !isBelow(path, m_temporaryFolder);
}

void ThumbnailCache::save(const QByteArray& uri, int savedSide, const QByteArray& png) const
{
    // On another thread, because writing waits for the disk.
    QThreadPool::globalInstance()->start(
        [folder = sizeFolder(savedSide), name = fileName(uri), png] { write(folder, name, png); });
}

QByteArray ThumbnailCache::sizeFolder(int savedSide) const
{
    return m_folder + '/' + sizeName(savedSide);
}

QByteArray ThumbnailCache::fileName(const QByteArray& uri)
{
    return QCryptographicHash::hash(uri, QCryptographicHash::Md5).toHex() + ".png";
}

} // namespace nookle
