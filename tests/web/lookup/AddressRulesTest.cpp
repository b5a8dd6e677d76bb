#include "AddressRules.h"

#include <QTest>

#include <sys/socket.h>

using namespace nookle;

class AddressRulesTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void privateAddressesAreKnown_data();
    void privateAddressesAreKnown();
    void publicAddressesAreKnown_data();
    void publicAddressesAreKnown();
    void namesBehindAProxyAreJudged_data();
    void namesBehindAProxyAreJudged();
    void thisComputerIsKnown();
    void whatIsNoAddressIsNone();
};

void AddressRulesTest::privateAddressesAreKnown_data()
{
    QTest::addColumn<QString>("address");
    for (const char* address : { "0.0.0.0",
                                 "0.1.2.3",
                                 "10.0.0.0",
                                 "10.255.255.255",
                                 "100.64.0.1",
                                 "100.127.255.255",
                                 "127.0.0.1",
                                 "127.8.9.1",
                                 "169.254.169.254",
                                 "172.16.0.1",
                                 "172.31.255.255",
                                 "192.0.0.1",
                                 "192.0.2.1",
                                 "192.168.0.1",
                                 "198.18.0.1",
                                 "198.19.255.255",
                                 "198.51.100.7",
                                 "203.0.113.7",
                                 "224.0.0.1",
                                 "239.255.255.255",
                                 "240.0.0.1",
                                 "255.255.255.255",
                                 "::",
                                 "::1",
                                 "::7f00:1",
                                 "fe80::1",
                                 "fec0::1",
                                 "fc00::1",
                                 "fdff::1",
                                 "ff02::1",
                                 "::ffff:127.0.0.1",
                                 "::ffff:10.0.0.1",
                                 "64:ff9b::7f00:1",
                                 "64:ff9b::c0a8:1",
                                 "64:ff9b:1::1",
                                 "2002:7f00:1::1",
                                 "2002:c0a8:101::",
                                 "2001::1",
                                 "2001:10::1",
                                 "2001:db8::1",
                                 "100::1",
                                 "3fff::1",
                                 "4000::1" })
        QTest::newRow(address) << QString::fromLatin1(address);
}

void AddressRulesTest::privateAddressesAreKnown()
{
    QFETCH(QString, address);
    const auto judged = addressOf(address.toLatin1());
    QVERIFY(judged);
    QCOMPARE(reachOf(*judged), WebReach::privateNetwork);
}

void AddressRulesTest::publicAddressesAreKnown_data()
{
    QTest::addColumn<QString>("address");
    for (const char* address : { "1.1.1.1",         "9.255.255.255",        "11.0.0.0",       "100.63.255.255",
                                 "100.128.0.0",     "126.255.255.255",      "128.0.0.0",      "169.253.255.255",
                                 "169.255.0.0",     "172.15.255.255",       "172.32.0.0",     "192.167.255.255",
                                 "192.169.0.0",     "198.17.255.255",       "198.20.0.0",     "223.255.255.255",
                                 "2606:4700::1111", "2001:4860:4860::8888", "::ffff:1.1.1.1", "64:ff9b::101:101",
                                 "2002:101:101::1" })
        QTest::newRow(address) << QString::fromLatin1(address);
}

void AddressRulesTest::publicAddressesAreKnown()
{
    QFETCH(QString, address);
    const auto judged = addressOf(address.toLatin1());
    QVERIFY(judged);
    QCOMPARE(reachOf(*judged), WebReach::publicNetwork);
}

void AddressRulesTest::namesBehindAProxyAreJudged_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isPublic");
    for (const char* name : { "example.org", "EXAMPLE.org.", "1.1.1.1", "localhost.example.org", "2606:4700::1111" })
        QTest::newRow(name) << QString::fromLatin1(name) << true;
    for (const char* name :
         { "localhost", "LOCALHOST.", "a.localhost", "router", "printer.local", "nas.lan", "metadata.google.internal",
           "box.home.arpa", "10.0.0.1", "::1", "0x7f.1", "127.1", "2130706433" })
        QTest::newRow(name) << QString::fromLatin1(name) << false;
}

void AddressRulesTest::namesBehindAProxyAreJudged()
{
    QFETCH(QString, name);
    QFETCH(bool, isPublic);
    QCOMPARE(reachOfName(name), isPublic ? WebReach::publicNetwork : WebReach::privateNetwork);
}

void AddressRulesTest::thisComputerIsKnown()
{
    for (const char* name : { "localhost", "LocalHost.", "app.localhost", "127.0.0.1", "127.3.2.1", "::1" })
        QVERIFY2(isThisComputer(QString::fromLatin1(name)), name);
    for (const char* name : { "localhost.org", "mylocalhost", "10.0.0.1", "example.org" })
        QVERIFY2(!isThisComputer(QString::fromLatin1(name)), name);
}

void AddressRulesTest::whatIsNoAddressIsNone()
{
    for (const char* text : { "", "a", "1.2.3", "1.2.3.4.5", "2130706433", "::1%lo", "[::1]", "::g" })
        QVERIFY2(!addressOf(QByteArray(text)), text);
    const sockaddr local{ AF_UNIX, {} };
    QVERIFY(!addressOf(local));
}

QTEST_GUILESS_MAIN(AddressRulesTest)
#include "AddressRulesTest.moc"
