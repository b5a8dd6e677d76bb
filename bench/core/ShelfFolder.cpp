#include "ShelfFolder.h"

#include "FileReference.h"
#include "FileUrl.h"

#include <QFile>

#include <sys/stat.h>

namespace nookle {

namespace {

[[nodiscard]] QByteArray fileName(int number)
{
    return "Holiday picture " + QByteArray::number(number) + ".jpeg";
}

[[nodiscard]] ShelfItem::Content content(int number)
{
    switch (number % 10) {
    case 0:
        return TextContent{
            QStringLiteral("Line %1 of a longer text\nwith \"signs\" to escape \u2013 and some not").arg(number)
        };
    case 1:
        return LinkContent{ *LinkUrl::parse(QStringLiteral("https://example.org/pages/%1?from=shelf").arg(number)),
                            QStringLiteral("Page %1").arg(number), true };
    case 2:
        return ImageContent{ QStringLiteral("Screenshot %1.png").arg(number) };
    default: {
        const QByteArray name = fileName(number);
        const FileIdentity identity{ quint64(number), S_IFREG, 1'700'000'000'123'456'789, 1234, 99, 1, "12345678" };
        return FileContent{ FileReference{ "/home/user/Pictures/" + name, identity }.encode(),
                            QString::fromUtf8(name) };
    }
    }
}

} // namespace

ShelfFolder::ShelfFolder(int fileCount)
{
    for (int number = 0; number < fileCount; ++number) {
        QFile file(QFile::decodeName(path(fileName(number))));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("cannot make %s", qPrintable(file.fileName()));
    }
}

QByteArray ShelfFolder::path(const QByteArray& name) const
{
    return QFile::encodeName(m_folder.path()) + '/' + name;
}

QList<QUrl> ShelfFolder::urls(int first, int count) const
{
    QList<QUrl> urls;
    for (int number = first; number < first + count; ++number)
        urls.append(fileUrl(path(fileName(number))));
    return urls;
}

std::unique_ptr<ShelfStore> ShelfFolder::open()
{
    ShelfStore::Environment environment;
    environment.moveToTrash = [this](const QUrl& url) { return m_trash.moveToTrash(url); };
    environment.fetchesLinkMetadata = false;
    m_references = std::make_unique<LinuxFileReferences>(path("."), path("data"), m_queue);
    return std::make_unique<ShelfStore>(fileUrl(path("data")), environment, *m_references, m_trash, m_linkMetadata,
                                        m_queue);
}

QList<ShelfItem> ShelfFolder::mixedItems(int count)
{
    QList<ShelfItem> items;
    const QDateTime start = QDateTime::fromSecsSinceEpoch(1'700'000'000, Qt::UTC);
    for (int number = 0; number < count; ++number)
        items.append(ShelfItem{ QUuid::createUuid(), start.addSecs(number), content(number), number % 7 == 0 });
    return items;
}

} // namespace nookle
