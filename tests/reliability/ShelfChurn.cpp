#include "FakeLinkMetadataService.h"
#include "FileUrl.h"
#include "LinuxFileReferences.h"
#include "QtMainQueue.h"
#include "ShelfIndex.h"
#include "ShelfStore.h"
#include "Trash.h"
#include "IndexText.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QRandomGenerator>
#include <QTimer>

#include <unistd.h>

namespace nookle {

namespace {

/// Longer than the store waits before it saves.
constexpr int quietMilliseconds = 450;
constexpr int longestBurstMilliseconds = 40;
constexpr qsizetype mostItems = 60;

/// Keeps what is moved to it in a folder of its own.
class FolderTrash final : public Trash {
public:
    explicit FolderTrash(QByteArray folder)
        : m_folder(std::move(folder))
    {
    }

    std::optional<Failure> moveToTrash(const QUrl& url) override
    {
        const QByteArray path = filePath(url);
        const QByteArray id = path.split('/').value(path.count('/') - 1);
        if (::rename(path.constData(), QByteArray(m_folder + '/' + id).constData()) != 0)
            return Failure{ QStringLiteral("not moved") };
        return std::nullopt;
    }

    std::optional<Failure> putBack(const QUrl& /*url*/) override { return Failure{ QStringLiteral("not moved") }; }
    bool canPutBack(const QUrl& /*url*/) const override { return false; }

    bool contains(const QUrl& /*url*/) const override { return false; }

private:
    QByteArray m_folder;
};

/// Changes a shelf at random, and writes down each state in the turn in which it comes about: a line with the hash of
/// the index that a save would write now. A line "quiet" says that everything before it must have been saved, and a
/// line "image" with an identity that the shelf has taken an image over for that item.
class Churn {
public:
    /// Below `folder` are "data", "sources" with files to add, "trash" and "journal".
    Churn(const QByteArray& folder, quint32 seed)
        : m_folder(folder)
        , m_random(seed)
        , m_references(folder + "/sources", folder + "/share", m_queue)
        , m_trash(folder + "/trash")
        , m_store(fileUrl(folder + "/data"), environment(), m_references, m_trash, m_metadata, m_queue)
        , m_journal(QFile::decodeName(folder + "/journal"))
    {
        if (!m_journal.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
            qFatal("no journal");
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { turn(); });
        record();
        m_timer.start(0);
    }

private:
    [[nodiscard]] ShelfStore::Environment environment()
    {
        ShelfStore::Environment environment;
        environment.moveToTrash = [this](const QUrl& url) { return m_trash.moveToTrash(url); };
        environment.fetchesLinkMetadata = false;
        return environment;
    }

    void turn()
    {
        if (m_isQuiet)
            write("quiet");
        change();
        record();
        m_isQuiet = m_random.bounded(8) == 0;
        m_timer.start(m_isQuiet ? quietMilliseconds : m_random.bounded(1, longestBurstMilliseconds));
    }

    void change()
    {
        if (m_store.items().size() > mostItems) {
            m_store.remove(anyItem());
            return;
        }
        switch (m_random.bounded(6)) {
        case 0:
            m_store.addText(QStringLiteral("text %1").arg(m_random.generate()));
            break;
        case 1:
            m_store.addLink(*LinkUrl::parse(QStringLiteral("https://example.org/%1").arg(m_random.generate())), {});
            break;
        case 2:
            m_store.addFiles({ anySource(), anySource(), anySource() });
            break;
        case 3:
            addImage();
            break;
        case 4:
            m_store.togglePinned(anyItem());
            break;
        default:
            m_store.remove(anyItem());
        }
    }

    void addImage()
    {
        QFile image(QFile::decodeName(m_folder + "/sources/image.png"));
        if (!image.open(QIODevice::WriteOnly) || image.write("pixels") < 0)
            qFatal("no image");
        image.close();
        m_store.addImage(fileUrl(m_folder + "/sources/image.png"));
        write("image " + uuidText(m_store.items().constFirst().id).toLatin1());
    }

    [[nodiscard]] QUrl anySource()
    {
        return fileUrl(m_folder + "/sources/" + QByteArray::number(m_random.bounded(100)));
    }

    [[nodiscard]] QUuid anyItem()
    {
        const qsizetype count = m_store.items().size();
        return count == 0 ? QUuid() : m_store.items().at(m_random.bounded(static_cast<int>(count))).id;
    }

    void record()
    {
        const QByteArray index = ShelfIndex{ .items = m_store.items() }.encode();
        write(QCryptographicHash::hash(index, QCryptographicHash::Sha1).toHex());
    }

    void write(const QByteArray& line)
    {
        if (m_journal.write(line + '\n') != line.size() + 1)
            qFatal("the journal cannot be written");
    }

    QByteArray m_folder;
    QRandomGenerator m_random;
    QtMainQueue m_queue;
    LinuxFileReferences m_references;
    FolderTrash m_trash;
    FakeLinkMetadataService m_metadata;
    ShelfStore m_store;
    QFile m_journal;
    QTimer m_timer;
    bool m_isQuiet = false;
};

} // namespace

} // namespace nookle

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 3)
        qFatal("usage: ShelfChurn FOLDER SEED");
    const nookle::Churn churn(argv[1], QByteArray(argv[2]).toUInt());
    return QCoreApplication::exec();
}
