#include "ServicePasteboard.h"

#include <QSysInfo>
#include <QTest>

using namespace nookle;

class ServicePasteboardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void filesKeepTheirOrder();
    void anEmptyTextIsNone();
    void pagesAreTheTextsWhenNothingElseIs();
    void filesOfOtherMachinesAreNone();
    void theNameOfThisMachineIsLeftOut();
    void whatIsNoAddressIsNone();
    void bytesThatAreNotUtf8StayEncoded();
};

void ServicePasteboardTest::filesKeepTheirOrder()
{
    const auto pasteboard =
        servicePasteboard({ QStringLiteral("file:///b"), QStringLiteral("file:///a%20c") }, QStringLiteral("text"));
    QCOMPARE(pasteboard.fileUrls,
             (QList<QUrl>{ QUrl(QStringLiteral("file:///b")), QUrl(QStringLiteral("file:///a%20c")) }));
    QCOMPARE(pasteboard.strings, QStringList{ QStringLiteral("text") });
}

void ServicePasteboardTest::anEmptyTextIsNone()
{
    QVERIFY(servicePasteboard({}, {}).strings.isEmpty());
}

void ServicePasteboardTest::pagesAreTheTextsWhenNothingElseIs()
{
    const QStringList pages{ QStringLiteral("https://one.example/"), QStringLiteral("https://two.example/") };
    QCOMPARE(servicePasteboard(pages, {}).strings, pages);
    QVERIFY(servicePasteboard(pages, {}).fileUrls.isEmpty());
    QCOMPARE(servicePasteboard(pages, QStringLiteral("words")).strings, QStringList{ QStringLiteral("words") });
}

void ServicePasteboardTest::filesOfOtherMachinesAreNone()
{
    const auto pasteboard = servicePasteboard({ QStringLiteral("file://elsewhere/a"), QStringLiteral("file:a") }, {});
    QVERIFY(pasteboard.fileUrls.isEmpty());
    QVERIFY(pasteboard.strings.isEmpty());
}

void ServicePasteboardTest::theNameOfThisMachineIsLeftOut()
{
    const QString own = QStringLiteral("file://%1/a").arg(QSysInfo::machineHostName());
    QCOMPARE(servicePasteboard({ own }, {}).fileUrls, QList<QUrl>{ QUrl(QStringLiteral("file:///a")) });
}

void ServicePasteboardTest::whatIsNoAddressIsNone()
{
    const auto pasteboard = servicePasteboard({ QString(), QStringLiteral("/a"), QStringLiteral("words") }, {});
    QVERIFY(pasteboard.fileUrls.isEmpty());
    QVERIFY(pasteboard.strings.isEmpty());
}

void ServicePasteboardTest::bytesThatAreNotUtf8StayEncoded()
{
    const auto pasteboard = servicePasteboard({ QStringLiteral("file:///caf%E9") }, {});
    QCOMPARE(pasteboard.fileUrls.first().toEncoded(), QByteArray("file:///caf%E9"));
}

QTEST_GUILESS_MAIN(ServicePasteboardTest)
#include "ServicePasteboardTest.moc"
