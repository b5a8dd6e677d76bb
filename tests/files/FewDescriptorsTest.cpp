#include "FakeMainQueue.h"
#include "FileUrl.h"
#include "LinuxFileReferences.h"
#include "TemporaryFolder.h"
#include "WithoutDescriptors.h"

#include <QTest>

#include <optional>

using namespace nookle;

/// What becomes of the files of a shelf whose program has no descriptor left.
class FewDescriptorsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aFileIsReferredToAllTheSame();
    void aFileInItsPlaceIsKnown();
    void aFileThatIsNotThereIsNotReferredTo();

private:
    TemporaryFolder m_home;
    FakeMainQueue m_queue;
    LinuxFileReferences m_references{ m_home.path(), m_home.path("data"), m_queue };
};

void FewDescriptorsTest::aFileIsReferredToAllTheSame()
{
    const QByteArray path = m_home.makeFile("new");
    std::optional<QByteArray> reference;
    {
        const WithoutDescriptors without;
        reference = m_references.make(fileUrl(path));
    }
    QVERIFY(reference);
    // The reference knows more of the file than its path.
    const QByteArray moved = m_home.path("moved");
    moveFile(path, moved);
    QCOMPARE(m_references.resolve(*reference), (ResolvedFile{ fileUrl(moved), true }));
}

void FewDescriptorsTest::aFileInItsPlaceIsKnown()
{
    const QByteArray path = m_home.makeFile("old");
    const auto reference = m_references.make(fileUrl(path));
    m_references.release(*reference);
    const WithoutDescriptors without;
    QCOMPARE(m_references.resolve(*reference), (ResolvedFile{ fileUrl(path), false }));
}

void FewDescriptorsTest::aFileThatIsNotThereIsNotReferredTo()
{
    const WithoutDescriptors without;
    QVERIFY(!m_references.make(fileUrl(m_home.path("missing"))));
}

QTEST_GUILESS_MAIN(FewDescriptorsTest)
#include "FewDescriptorsTest.moc"
