#include "RegularFile.h"

#include "TemporaryFolder.h"

#include <QTest>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>

using namespace nookle;

namespace {

[[nodiscard]] QByteArray contentOf(const RegularFile& file)
{
    QByteArray content(file.size + 1, '\0');
    content.resize(::read(file.descriptor.get(), content.data(), static_cast<size_t>(content.size())));
    return content;
}

} // namespace

class RegularFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sealedCopyHoldsTheContentAndCannotBeChanged();
    void onlyFilesInMemoryAreSealed();
    void sealedCopyHasALimit();
    void unwantedCopyIsNone();
    void copyOfAFolderIsNone();

private:
    [[nodiscard]] std::optional<RegularFile> open(const QByteArray& name) const
    {
        return RegularFile::open(m_folder.path(name), RegularFile::Links::follow);
    }

    TemporaryFolder m_folder;
    std::atomic<bool> m_isWanted = true;
};

void RegularFileTest::sealedCopyHoldsTheContentAndCannotBeChanged()
{
    // More than one piece, and no whole number of them.
    const QByteArray content = QByteArray("content").repeated(100'000);
    m_folder.makeFile("a", content);
    const auto file = open("a");
    const auto copy = file->sealedCopy(content.size(), m_isWanted);
    QVERIFY(copy);
    QCOMPARE(copy->size, content.size());
    QCOMPARE(copy->modificationTime, file->modificationTime);
    QVERIFY(copy->isSealed());
    const QByteArray name = "/proc/self/fd/" + QByteArray::number(copy->descriptor.get());
    const FileDescriptor anew(::open(name.constData(), O_RDWR));
    QVERIFY(anew.isOpen());
    QCOMPARE(::pwrite(anew.get(), "changed", 7, 0), -1);
    QCOMPARE(::ftruncate(anew.get(), 0), -1);
    QCOMPARE(::ftruncate(anew.get(), 10'000'000), -1);
    QCOMPARE(contentOf(*copy), content);
}

void RegularFileTest::onlyFilesInMemoryAreSealed()
{
    m_folder.makeFile("a", "content");
    QVERIFY(!open("a")->isSealed());
    QVERIFY(RegularFile::inMemory("content")->isSealed());
}

void RegularFileTest::sealedCopyHasALimit()
{
    m_folder.makeFile("a", "content");
    QVERIFY(open("a")->sealedCopy(7, m_isWanted));
    QVERIFY(!open("a")->sealedCopy(6, m_isWanted));
    // The file grows after it was opened.
    const auto file = open("a");
    QCOMPARE(::truncate(m_folder.path("a").constData(), 8), 0);
    QVERIFY(!file->sealedCopy(7, m_isWanted));
}

void RegularFileTest::unwantedCopyIsNone()
{
    m_folder.makeFile("a", "content");
    m_isWanted = false;
    const auto copy = open("a")->sealedCopy(100, m_isWanted);
    m_isWanted = true;
    QVERIFY(!copy);
}

void RegularFileTest::copyOfAFolderIsNone()
{
    RegularFile folder;
    folder.descriptor = FileDescriptor(::open(m_folder.path().constData(), O_RDONLY | O_CLOEXEC));
    QVERIFY(!folder.sealedCopy(100, m_isWanted));
}

QTEST_GUILESS_MAIN(RegularFileTest)
#include "RegularFileTest.moc"
