#include "KeyValueFile.h"

#include "TemporaryFolder.h"

#include <QTest>

#include <sys/stat.h>

using namespace nookle;

class KeyValueFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aValueIsFoundInItsGroup();
    void aKeyMayCarryAFlag();
    void aValueMayHoldAnything();
    void whatIsNoLineOfAKeyIsPassedOver();
    void aFileIsRead();
    void whatCannotBeReadCountsAsEmpty();
};

void KeyValueFileTest::aValueIsFoundInItsGroup()
{
    const KeyValueFile file("top=1\n[One]\nkey=a\n[Two]\r\nkey = b \r\n");
    QCOMPARE(file.value({}, "top"), QByteArray("1"));
    QCOMPARE(file.value("One", "key"), QByteArray("a"));
    QCOMPARE(file.value("Two", "key"), QByteArray("b"));
    QVERIFY(!file.value({}, "key"));
    QVERIFY(!file.value("One", "top"));
    QVERIFY(!file.value("Three", "key"));
}

void KeyValueFileTest::aKeyMayCarryAFlag()
{
    QCOMPARE(KeyValueFile("[Save]\nfolder[$e]=$HOME/x\n").value("Save", "folder"), QByteArray("$HOME/x"));
}

void KeyValueFileTest::aValueMayHoldAnything()
{
    QCOMPARE(KeyValueFile("key=a=b, c;\xe9[d]").value({}, "key"), QByteArray("a=b, c;\xe9[d]"));
    QCOMPARE(KeyValueFile("key=").value({}, "key"), QByteArray(""));
}

void KeyValueFileTest::whatIsNoLineOfAKeyIsPassedOver()
{
    const KeyValueFile file(QByteArrayLiteral("=x\n\0\xff\n[\n]\n[]\n# key=comment\nkey\nkey=right"));
    QCOMPARE(file.value({}, "key"), QByteArray("right"));
}

void KeyValueFileTest::aFileIsRead()
{
    const TemporaryFolder folder;
    const QByteArray path = folder.makeFile("settings", "key=value");
    QCOMPARE(KeyValueFile::read(path).value({}, "key"), QByteArray("value"));
}

void KeyValueFileTest::whatCannotBeReadCountsAsEmpty()
{
    const TemporaryFolder folder;
    const QByteArray pipe = folder.path("pipe");
    QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
    const QByteArray large = folder.makeFile("large", "key=value\n" + QByteArray(2 << 20, 'x'));
    for (const QByteArray& path : { pipe, large, folder.path(), folder.path("nowhere") })
        QVERIFY(!KeyValueFile::read(path).value({}, "key"));
}

QTEST_GUILESS_MAIN(KeyValueFileTest)
#include "KeyValueFileTest.moc"
