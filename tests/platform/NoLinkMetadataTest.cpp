#include "NoLinkMetadata.h"

#include "FakeMainQueue.h"

#include <QTest>

using namespace nookle;

class NoLinkMetadataTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLookupFailsOnceAfterTheCallHasReturned();
    void aCancelledLookupStaysSilent();
    void aRequestMayBeDestroyedByItsCompletion();

private:
    const QUrl m_url{ QStringLiteral("https://example.org/") };
};

void NoLinkMetadataTest::aLookupFailsOnceAfterTheCallHasReturned()
{
    FakeMainQueue queue;
    NoLinkMetadata service(queue);
    int failures = 0;
    const auto request = service.start(m_url, [&](const auto& metadata) { failures += metadata ? 0 : 1; });
    QVERIFY(request);
    QCOMPARE(failures, 0);
    queue.runPosted();
    queue.advance(100);
    QCOMPARE(failures, 1);
}

void NoLinkMetadataTest::aCancelledLookupStaysSilent()
{
    FakeMainQueue queue;
    NoLinkMetadata service(queue);
    bool isCalled = false;
    auto request = service.start(m_url, [&](const auto&) { isCalled = true; });
    request.reset();
    queue.runPosted();
    QVERIFY(!isCalled);
}

void NoLinkMetadataTest::aRequestMayBeDestroyedByItsCompletion()
{
    FakeMainQueue queue;
    NoLinkMetadata service(queue);
    std::unique_ptr<LinkMetadataRequest> request;
    QString seen;
    const QString captured = QStringLiteral("the closure outlives its request");
    request = service.start(m_url, [&request, &seen, captured](const auto&) {
        request.reset();
        seen = captured;
    });
    queue.runPosted();
    QVERIFY(!request);
    QCOMPARE(seen, captured);
}

QTEST_GUILESS_MAIN(NoLinkMetadataTest)
#include "NoLinkMetadataTest.moc"
