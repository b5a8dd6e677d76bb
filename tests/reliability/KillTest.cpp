#include "FakeFileReferences.h"
#include "FakeLinkMetadataService.h"
#include "FakeMainQueue.h"
#include "FakeTrash.h"
#include "FileUrl.h"
#include "ShelfIndex.h"
#include "ShelfStore.h"
#include "TemporaryFolder.h"
#include "UuidText.h"

#include <QCryptographicHash>
#include <QDir>
#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>

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
    [[nodiscard]] QStringList itemFolders() const;
    [[nodiscard]] bool hasItsFile(const ShelfItem& item, const ImageContent& image) const;

    TemporaryFolder m_folder;
    QRandomGenerator m_random{ 20'261'121 };
    ShelfIndex m_index;
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
    const QByteArray bytes = read("data/index.json");
    if (bytes.isEmpty() && !QFile::exists(QFile::decodeName(m_folder.path("data/index.json")))) {
        QVERIFY(!read("journal").contains("quiet"));
        return;
    }
    const auto decoded = ShelfIndex::decode(bytes);
    QVERIFY(std::holds_alternative<ShelfIndex>(decoded));
    m_index = std::get<ShelfIndex>(decoded);

    const QList<QByteArray> journal = read("journal").split('\n');
    const qsizetype saved = journal.lastIndexOf(QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex());
    QVERIFY2(saved >= 0, "the index is none of the states that the shelf was in");
    // The state right before the line has been saved, or a later one.
    const qsizetype quiet = journal.lastIndexOf("quiet");
    QVERIFY2(saved >= quiet - 1, "a state that had been quiet for long enough was not saved");

    for (const ShelfItem& item : std::as_const(m_index.items)) {
        if (const auto* image = std::get_if<ImageContent>(&item.content))
            QVERIFY2(hasItsFile(item, *image), qPrintable(uuidText(item.id)));
    }
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
    store.removeOrphans();
    QStringList images;
    for (const ShelfItem& item : store.items()) {
        if (std::holds_alternative<ImageContent>(item.content))
            images.append(uuidText(item.id));
    }
    for (const QString& folder : itemFolders())
        QVERIFY2(images.contains(folder), qPrintable(folder));
    store.saveNow();
    const QStringList left = QDir(QFile::decodeName(m_folder.path("data"))).entryList(QDir::Files | QDir::Hidden);
    QCOMPARE(left, QStringList{ QStringLiteral("index.json") });
}

QTEST_GUILESS_MAIN(KillTest)
#include "KillTest.moc"
