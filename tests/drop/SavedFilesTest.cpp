#include "SavedFiles.h"

#include "CapturedLog.h"
#include "FakeMainQueue.h"
#include "FileUrl.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>

using namespace nookle;

class SavedFilesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void filesThatHaveSettledArriveTogether();
    void aFileThatStillGrowsIsWaitedFor();
    void aFolderThatStaysEmptyIsGivenUpAndRemoved();
    void anEmptyFolderIsRemovedAtTheEnd();
    void aFolderWithAFileIsKeptAtTheEnd();

private:
    void write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(m_folder->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), bytes.size());
    }

    FakeMainQueue m_queue;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::optional<QList<QUrl>> m_arrived;
    std::unique_ptr<SavedFiles> m_saved;
};

void SavedFilesTest::init()
{
    m_arrived.reset();
    m_folder = std::make_unique<QTemporaryDir>();
    m_saved = std::make_unique<SavedFiles>(fileUrl(QFile::encodeName(m_folder->path())), m_queue,
                                           [this](const QList<QUrl>& files) { m_arrived = files; });
}

void SavedFilesTest::cleanup()
{
    m_saved.reset();
    m_folder.reset();
}

void SavedFilesTest::filesThatHaveSettledArriveTogether()
{
    m_queue.advance(2);
    QVERIFY(!m_arrived);
    write(QStringLiteral("b"), "words");
    QDir(m_folder->path()).mkdir(QStringLiteral("a"));
    m_queue.advance(0.5);
    QVERIFY(!m_arrived);
    m_queue.advance(0.5);
    QVERIFY(m_arrived);
    const QUrl folder = fileUrl(QFile::encodeName(m_folder->path()));
    QCOMPARE(*m_arrived, QList<QUrl>({ child(folder, QStringLiteral("a")), child(folder, QStringLiteral("b")) }));
    QVERIFY(m_saved->isDone());
    m_arrived.reset();
    m_queue.advance(5);
    QVERIFY(!m_arrived);
}

void SavedFilesTest::aFileThatStillGrowsIsWaitedFor()
{
    for (const char* bytes : { "a", "aa", "aaa" }) {
        write(QStringLiteral("a"), bytes);
        m_queue.advance(0.5);
        QVERIFY(!m_arrived);
    }
    m_queue.advance(0.5);
    QVERIFY(m_arrived);
}

void SavedFilesTest::aFolderThatStaysEmptyIsGivenUpAndRemoved()
{
    CapturedLog log;
    m_queue.advance(59.5);
    QVERIFY(!m_arrived);
    m_queue.advance(0.5);
    QCOMPARE(m_arrived, QList<QUrl>());
    QVERIFY(!QDir(m_folder->path()).exists());
    QCOMPARE(log.lines().size(), 1);
}

void SavedFilesTest::anEmptyFolderIsRemovedAtTheEnd()
{
    m_queue.advance(5);
    m_saved.reset();
    QVERIFY(!QDir(m_folder->path()).exists());
}

void SavedFilesTest::aFolderWithAFileIsKeptAtTheEnd()
{
    write(QStringLiteral("a"), "words");
    m_saved.reset();
    QVERIFY(QFile::exists(m_folder->filePath(QStringLiteral("a"))));
}

QTEST_GUILESS_MAIN(SavedFilesTest)
#include "SavedFilesTest.moc"
