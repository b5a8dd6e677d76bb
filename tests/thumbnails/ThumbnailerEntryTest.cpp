#include "ThumbnailerEntry.h"

#include <QTest>

using namespace nookle;

class ThumbnailerEntryTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void entryIsRead();
    void escapesAreResolvedBeforeTheWordsAreSplit();
    void fileThatIsNoEntryIsRefused_data();
    void fileThatIsNoEntryIsRefused();
    void programThatIsMissingIsNotInstalled();
};

void ThumbnailerEntryTest::entryIsRead()
{
    const auto entry = ThumbnailerEntry::parse("# A comment\n[Other]\nExec=wrong %o\n"
                                               "[Thumbnailer Entry]\nX-Other=5\n TryExec = /usr/bin/true \r\n"
                                               "Exec=true -s %s \"%i\" %o\nMimeType=video/mp4; video/ogg;;\n"
                                               "[Another]\nExec=wrong %o\n");
    QVERIFY(entry);
    QCOMPARE(entry->command,
             (QStringList{ QStringLiteral("true"), QStringLiteral("-s"), QStringLiteral("%s"), QStringLiteral("%i"),
                           QStringLiteral("%o") }));
    QCOMPARE(entry->tryExec, QStringLiteral("/usr/bin/true"));
    QCOMPARE(entry->mimeTypes, (QStringList{ QStringLiteral("video/mp4"), QStringLiteral("video/ogg") }));
    QVERIFY(entry->isInstalled());
}

void ThumbnailerEntryTest::escapesAreResolvedBeforeTheWordsAreSplit()
{
    const auto entry = ThumbnailerEntry::parse("[Thumbnailer Entry]\nExec=a\\sb \"c\\\\\\\\d\" %o\nMimeType=a/b\n");
    QVERIFY(entry);
    QCOMPARE(entry->command,
             (QStringList{ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c\\d"), QStringLiteral("%o") }));
}

void ThumbnailerEntryTest::fileThatIsNoEntryIsRefused_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("other group") << QByteArray("[Desktop Entry]\nExec=a %o\nMimeType=a/b\n");
    QTest::newRow("no group") << QByteArray("Exec=a %o\nMimeType=a/b\n");
    QTest::newRow("no command") << QByteArray("[Thumbnailer Entry]\nMimeType=a/b\n");
    QTest::newRow("no types") << QByteArray("[Thumbnailer Entry]\nExec=a %o\n");
    QTest::newRow("command with an open quote") << QByteArray("[Thumbnailer Entry]\nExec=a \"%o\nMimeType=a/b\n");
    QTest::newRow("commented command") << QByteArray("[Thumbnailer Entry]\n#Exec=a %o\nMimeType=a/b\n");
    QTest::newRow("bytes") << QByteArray("\0\xff=\xfe\n[Thumbnailer Entry", 22);
}

void ThumbnailerEntryTest::fileThatIsNoEntryIsRefused()
{
    QFETCH(const QByteArray, content);
    QCOMPARE(ThumbnailerEntry::parse(content), std::nullopt);
}

void ThumbnailerEntryTest::programThatIsMissingIsNotInstalled()
{
    ThumbnailerEntry entry{ { QStringLiteral("sh") }, QStringLiteral("/does/not/exist"), { QStringLiteral("a/b") } };
    QVERIFY(!entry.isInstalled());
    entry.tryExec = QStringLiteral("no-program-has-this-name");
    QVERIFY(!entry.isInstalled());
    entry.tryExec = QStringLiteral("sh");
    QVERIFY(entry.isInstalled());
    entry.tryExec.clear();
    QVERIFY(entry.isInstalled());
}

QTEST_GUILESS_MAIN(ThumbnailerEntryTest)
#include "ThumbnailerEntryTest.moc"
