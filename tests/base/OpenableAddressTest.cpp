#include "OpenableAddress.h"

#include <QTest>

using namespace nookle;

class OpenableAddressTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatRunsOrHoldsContentIsRefused_data();
    void whatRunsOrHoldsContentIsRefused();
    void whatTheUserMayOpenIsAllowed_data();
    void whatTheUserMayOpenIsAllowed();
};

void OpenableAddressTest::whatRunsOrHoldsContentIsRefused_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("refused");
    const auto row = [](const char* address, const char* refused) {
        QTest::newRow(address) << QString::fromUtf8(address) << QString::fromLatin1(refused);
    };
    row("javascript:alert(1)", "javascript");
    row("JavaScript:alert(1)", "javascript");
    row("javascript://host/%0aalert(1)", "javascript");
    row("data:text/html,moonlight", "data");
    row("data:", "data");
    row("vbscript:x", "vbscript");
    row("blob:https://example.com/1", "blob");
    row("about:config", "about");
    row("file://elsewhere/a", "file");
    row("file://localhost/a", "file");
    row("FILE://elsewhere/a", "file");
    row("file://me@elsewhere/a", "file");
    row("view-source:javascript:alert(1)", "javascript");
    row("view-source:%20javascript:alert(1)", "javascript");
    row("view-source:java%09script:alert(1)", "javascript");
    row("view-source:%6aavascript:alert(1)", "javascript");
    row("feed:DATA:text/html,x", "data");
    row("jar:data:x!/a", "data");
    row("jar:file://elsewhere/a.jar!/b", "file");
    row("a:b:c:d:e:f:g:javascript:x", "javascript");
    row("a:b:c:d:e:f:g:h:javascript:x", "too many schemes");
    row("http://a:99999/", "not valid");
    row("http://a%20b/", "not valid");
    row("", "no scheme");
    row("relative/path", "no scheme");
    row("//host/path", "no scheme");
}

void OpenableAddressTest::whatRunsOrHoldsContentIsRefused()
{
    QFETCH(const QString, address);
    QFETCH(const QString, refused);
    QCOMPARE(refusedScheme(QUrl(address)), refused);
}

void OpenableAddressTest::whatTheUserMayOpenIsAllowed_data()
{
    QTest::addColumn<QString>("address");
    for (const char* address :
         { "https://example.com/", "http://example.com/javascript:x", "https://example.com/?u=data:x",
           "https://javascript:8080/", "ftp://example.com/a", "mailto:a@example.com?subject=data:", "tel:+491234",
           "magnet:?xt=urn:btih:0", "steam://run/1", "urn:isbn:1", "view-source:https://example.com/",
           "file:///home/me/a", "file:/home/me/a", "file:///home/me/javascript:x", "file:///home/me/a%0Ab%FF%20c" })
        QTest::newRow(address) << QString::fromLatin1(address);
}

void OpenableAddressTest::whatTheUserMayOpenIsAllowed()
{
    QFETCH(const QString, address);
    const auto refused = refusedScheme(QUrl(address));
    QVERIFY2(!refused, qPrintable(refused.value_or(QString())));
}

QTEST_GUILESS_MAIN(OpenableAddressTest)
#include "OpenableAddressTest.moc"
