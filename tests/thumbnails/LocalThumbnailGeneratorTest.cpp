#include "LocalThumbnailGenerator.h"

#include "FakeMainQueue.h"
#include "FakeThumbnailGenerator.h"
#include "FileUrl.h"
#include "MountList.h"
#include "Mounts.h"

#include <QTest>

using namespace nookle;

class LocalThumbnailGeneratorTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void whatAnswersIsAskedFor();
    void whatMayNotAnswerHasNoThumbnail();
    void aLinkToWhatMayNotAnswerHasNoThumbnail();
    void aRefusalThatIsNotWantedAnyMoreIsNotTold();

private:
    [[nodiscard]] std::unique_ptr<Cancellable> ask(const QByteArray& name)
    {
        return m_thumbnails->request(fileUrl(m_folder->path(name)), 52, 1,
                                     [this](const std::optional<Picture>& picture) {
                                         QVERIFY(!picture);
                                         ++m_refusals;
                                     });
    }

    std::unique_ptr<TemporaryFolder> m_folder;
    FakeMainQueue m_queue;
    std::unique_ptr<FakeThumbnailGenerator> m_all;
    std::unique_ptr<LocalThumbnailGenerator> m_thumbnails;
    int m_refusals = 0;
};

void LocalThumbnailGeneratorTest::init()
{
    m_folder = std::make_unique<TemporaryFolder>();
    m_folder->makeFolder("server");
    MountList list;
    list.add(m_folder->path("server"), "nfs");
    m_all = std::make_unique<FakeThumbnailGenerator>();
    m_thumbnails =
        std::make_unique<LocalThumbnailGenerator>(*m_all, std::make_shared<Mounts>("/", list.path()), m_queue);
    m_refusals = 0;
}

void LocalThumbnailGeneratorTest::whatAnswersIsAskedFor()
{
    const auto before = m_all->requestCount();
    const auto request = ask("file");
    QVERIFY(request);
    QCOMPARE(m_all->requestCount(), before + 1);
    m_queue.runPosted();
    QCOMPARE(m_refusals, 0);
}

void LocalThumbnailGeneratorTest::whatMayNotAnswerHasNoThumbnail()
{
    const auto before = m_all->requestCount();
    const auto request = ask("server/file");
    QCOMPARE(m_refusals, 0);
    m_queue.runPosted();
    QCOMPARE(m_refusals, 1);
    QCOMPARE(m_all->requestCount(), before);
}

void LocalThumbnailGeneratorTest::aLinkToWhatMayNotAnswerHasNoThumbnail()
{
    makeLink("server/file", m_folder->path("link"));
    const auto before = m_all->requestCount();
    const auto request = ask("link");
    m_queue.runPosted();
    QCOMPARE(m_refusals, 1);
    QCOMPARE(m_all->requestCount(), before);
}

void LocalThumbnailGeneratorTest::aRefusalThatIsNotWantedAnyMoreIsNotTold()
{
    auto request = ask("server/file");
    request.reset();
    m_queue.runPosted();
    QCOMPARE(m_refusals, 0);
}

QTEST_GUILESS_MAIN(LocalThumbnailGeneratorTest)
#include "LocalThumbnailGeneratorTest.moc"
