#include "SealedCopy.h"

#include "OpenDescriptors.h"
#include "TemporaryFolder.h"

#include <QTest>

#include <sys/stat.h>
#include <unistd.h>

#include <memory>
#include <vector>

using namespace nookle;

class SealedCopyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void copyIsSealed();
    void longFileHasNoCopy();
    void droppedCopyNeverCompletesAndItsFileIsClosed();
    void copyMayBeDroppedByItsCompletion();

private:
    [[nodiscard]] RegularFile open(const char* name) const
    {
        return std::move(*RegularFile::open(m_folder.path(name), RegularFile::Links::follow));
    }

    TemporaryFolder m_folder;
};

void SealedCopyTest::copyIsSealed()
{
    m_folder.makeFile("a", "content");
    std::optional<RegularFile> made;
    bool isDone = false;
    const SealedCopy copy(open("a"), 7, [&](std::optional<RegularFile> file) {
        made = std::move(file);
        isDone = true;
    });
    QVERIFY(!isDone);
    QTRY_VERIFY(isDone);
    QVERIFY(made && made->isSealed());
    QCOMPARE(made->size, 7);
}

void SealedCopyTest::longFileHasNoCopy()
{
    m_folder.makeFile("a", "content");
    std::optional<RegularFile> made = open("a");
    bool isDone = false;
    const SealedCopy copy(open("a"), 6, [&](std::optional<RegularFile> file) {
        made = std::move(file);
        isDone = true;
    });
    QTRY_VERIFY(isDone);
    QVERIFY(!made);
}

void SealedCopyTest::droppedCopyNeverCompletesAndItsFileIsClosed()
{
    m_folder.makeFile("a", "content");
    bool isDone = false;
    for (int count = 0; count < 100; ++count)
        const SealedCopy copy(open("a"), 100, [&](const auto& /*file*/) { isDone = true; });
    QTRY_COMPARE(descriptorsBelow(m_folder.path()), 0);
    QCoreApplication::processEvents();
    QVERIFY(!isDone);
}

void SealedCopyTest::copyMayBeDroppedByItsCompletion()
{
    m_folder.makeFile("a", "content");
    bool isDone = false;
    std::unique_ptr<SealedCopy> copy;
    copy = std::make_unique<SealedCopy>(open("a"), 100, [&](const auto& /*file*/) {
        copy.reset();
        isDone = true;
    });
    QTRY_VERIFY(isDone);
}

QTEST_GUILESS_MAIN(SealedCopyTest)
#include "SealedCopyTest.moc"
