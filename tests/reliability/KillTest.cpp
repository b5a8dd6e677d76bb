#include "FakeFileReferences.h"
#include "FakeLinkMetadataService.h"
#include "FakeMainQueue.h"
#include "FakeTrash.h"
#include "FileUrl.h"
#include "ShelfIndex.h"
#include "ShelfStore.h"
#include "TemporaryFolder.h"
#include "IndexText.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QTest>

#include <algorithm>

using namespace nookle;

/// Kills a program that changes a shelf, again and again, and looks at what is left. NOOKLE_KILLS says how often.
class KillTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyKillLeavesAStateThatWas();
    void whatTheKillsLeftBehindIsClearedAway();

private:
    void churnAndKill(quint32 seed);
    void look();
    [[nodiscard]] QByteArray read(const QByteArray& name) const;
    /// Reads what was saved; its place in the journal, 0 while nothing was.
    [[nodiscard]] qsizetype lookAtIndex(const QByteArrayList& journal);
    void lookAtFolders(const QByteArrayList& unsaved);
    [[nodiscard]] QStringList itemFolders() const;
    [[nodiscard]] bool isImage(const QString& folder) const;
    [[nodiscard]] bool hasItsFile(const ShelfItem& item, const ImageContent& image) const;

    TemporaryFolder m_folder;
    QRandomGenerator m_random{ 20'261'121 };
    ShelfIndex m_index;
    /// The folders that earlier kills have left without an item.
    QStringList m_orphans;
};

void KillTest::initTestCase()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_CHURN"), "run it with ctest, which says which program is killed");
    m_folder.makeFolder("sources");
    m_folder.makeFolder("trash");
    for (int number = 0; number < 100; ++number)
        m_folder.makeFile("sources/" + QByteArray::number(number));
}

QByteArray KillTest::read(const QByteArray& name) const
{
    QFile file(QFile::decodeName(m_folder.path(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList KillTest::itemFolders() const
{
    return QDir(QFile::decodeName(m_folder.path("data/Files"))).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

void KillTest::churnAndKill(quint32 seed)
{
    QProcess churn;
    churn.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    churn.start(qEnvironmentVariable("NOOKLE_CHURN"), { QFile::decodeName(m_folder.path()), QString::number(seed) });
    QVERIFY(churn.waitForStarted());
    // Any moment will do, and each run has another one.
    QVERIFY(!churn.waitForFinished(m_random.bounded(20, 1200)));
    churn.kill();
    QVERIFY(churn.waitForFinished());
}

void KillTest::look()
{
    const QByteArrayList journal = read("journal").split('\n');
    const qsizetype saved = lookAtIndex(journal);
    if (QTest::currentTestFailed())
        return;
    for (const ShelfItem& item : std::as_const(m_index.items)) {
        if (const auto* image = std::get_if<ImageContent>(&item.content))
            QVERIFY2(hasItsFile(item, *image), qPrintable(uuidText(item.id)));
    }
    lookAtFolders(journal.mid(saved));
}

qsizetype KillTest::lookAtIndex(const QByteArrayList& journal)
{
    // The state right before the line has been saved, or a later one.
    const qsizetype quiet = journal.lastIndexOf("quiet");
    const QByteArray bytes = read("data/index.json");
    if (bytes.isEmpty() && quiet < 0 && !QFile::exists(QFile::decodeName(m_folder.path("data/index.json"))))
        return 0;
    const auto decoded = ShelfIndex::decode(bytes);
    const auto* index = std::get_if<ShelfIndex>(&decoded);
    if (!index) {
        QTest::qFail("the index cannot be read", __FILE__, __LINE__);
        return 0;
    }
    m_index = *index;
    const qsizetype saved = journal.lastIndexOf(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
    if (saved < 0)
        QTest::qFail("the index is none of the states that the shelf was in", __FILE__, __LINE__);
    if (saved < quiet - 1)
        QTest::qFail("a state that had been quiet for long enough was not saved", __FILE__, __LINE__);
    return saved;
}

// A folder without an item is that of an image that came after the last save. The one that was being taken over when
// the program was killed is not in the journal.
void KillTest::lookAtFolders(const QByteArrayList& unsaved)
{
    QStringList unknown;
    for (const QString& folder : itemFolders()) {
        if (isImage(folder) || m_orphans.contains(folder))
            continue;
        m_orphans.append(folder);
        if (!unsaved.contains("image " + folder.toLatin1()))
            unknown.append(folder);
    }
    QVERIFY2(unknown.size() <= 1, qPrintable(unknown.join(QLatin1Char(' '))));
}

bool KillTest::isImage(const QString& folder) const
{
    return std::any_of(m_index.items.begin(), m_index.items.end(), [&](const ShelfItem& item) {
        return std::holds_alternative<ImageContent>(item.content) && uuidText(item.id) == folder;
    });
}

// The image of an item whose removal was not saved any more lies in the Trash.
bool KillTest::hasItsFile(const ShelfItem& item, const ImageContent& image) const
{
    const QByteArray id = uuidText(item.id).toLatin1();
    return read("data/Files/" + id + '/' + image.fileName.toUtf8()) == "pixels" || read("trash/" + id) == "pixels";
}

void KillTest::everyKillLeavesAStateThatWas()
{
    const int kills = qEnvironmentVariable("NOOKLE_KILLS", QStringLiteral("40")).toInt();
    for (int kill = 0; kill < kills && !QTest::currentTestFailed(); ++kill) {
        churnAndKill(m_random.generate());
        look();
    }
}

void KillTest::whatTheKillsLeftBehindIsClearedAway()
{
    FakeFileReferences references;
    FakeTrash trash;
    FakeLinkMetadataService metadata;
    FakeMainQueue queue;
    ShelfStore::Environment environment;
    environment.now = [] { return QDateTime::currentDateTimeUtc().addDays(2); };
    environment.moveToTrash = [&](const QUrl& url) { return trash.moveToTrash(url); };
    ShelfStore store(fileUrl(m_folder.path("data")), environment, references, trash, metadata, queue);
    QCOMPARE(store.items(), m_index.items);
    QVERIFY(!m_orphans.isEmpty());
    store.removeOrphans();
    for (const QString& folder : itemFolders())
        QVERIFY2(isImage(folder), qPrintable(folder));
    store.saveNow();
    const QStringList left = QDir(QFile::decodeName(m_folder.path("data"))).entryList(QDir::Files | QDir::Hidden);
    QCOMPARE(left, QStringList{ QStringLiteral("index.json") });
}

QTEST_GUILESS_MAIN(KillTest)
#include "KillTest.moc"
