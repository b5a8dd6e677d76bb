#include "SampleShelf.h"

#include "FakeMainQueue.h"
#include "FileUrl.h"
#include "LinuxFileReferences.h"
#include "ShelfIndex.h"
#include "IndexText.h"

#include <QDir>
#include <QFile>
#include <QImage>

namespace nookle::bench {

namespace {

class SampleShelf {
public:
    SampleShelf(const QString& dataHome, const QString& files)
        : m_folder(dataHome + QStringLiteral("/Nookle"))
        , m_files(files)
        , m_references(QFile::encodeName(files), QFile::encodeName(dataHome), m_queue)
    {
    }

    [[nodiscard]] bool write(int count)
    {
        QDir().mkpath(m_folder);
        QDir().mkpath(m_files);
        ShelfIndex index{ 1, {} };
        const QDateTime start = QDateTime::currentDateTimeUtc();
        for (int number = 0; number < count; ++number) {
            const QUuid id = QUuid::createUuid();
            const auto content = this->content(number, id);
            if (!content)
                return false;
            index.items.append(ShelfItem{ id, start.addSecs(-number), *content, number % 7 == 0 });
        }
        return writeFile(m_folder + QStringLiteral("/index.json"), index.encode());
    }

private:
    [[nodiscard]] std::optional<ShelfItem::Content> content(int number, const QUuid& id)
    {
        switch (number % 10) {
        case 0:
            return TextContent{ QStringLiteral("Line %1 of a longer text\nwith a second line").arg(number) };
        case 1:
            return LinkContent{ *LinkUrl::parse(QStringLiteral("https://example.org/pages/%1").arg(number)),
                                QStringLiteral("Page %1").arg(number), false };
        case 2:
            return image(id);
        default:
            return file(number);
        }
    }

    [[nodiscard]] std::optional<ShelfItem::Content> image(const QUuid& id) const
    {
        const QString folder = m_folder + QStringLiteral("/Files/") + uuidText(id);
        const QString name = QStringLiteral("Screenshot.png");
        QImage picture(64, 48, QImage::Format_RGB32);
        picture.fill(Qt::darkCyan);
        if (!QDir().mkpath(folder) || !picture.save(folder + QLatin1Char('/') + name))
            return std::nullopt;
        return ImageContent{ name };
    }

    [[nodiscard]] std::optional<ShelfItem::Content> file(int number)
    {
        const QString name = QStringLiteral("Minutes of meeting %1.txt").arg(number);
        const QString path = m_files + QLatin1Char('/') + name;
        if (!writeFile(path, "words"))
            return std::nullopt;
        const auto reference = m_references.make(fileUrl(QFile::encodeName(path)));
        return reference ? std::optional(FileContent{ *reference, name }) : std::nullopt;
    }

    [[nodiscard]] static bool writeFile(const QString& path, const QByteArray& bytes)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

    QString m_folder;
    QString m_files;
    FakeMainQueue m_queue;
    LinuxFileReferences m_references;
};

} // namespace

bool writeSampleShelf(const QString& dataHome, const QString& files, int count)
{
    return SampleShelf(dataHome, files).write(count);
}

} // namespace nookle::bench
