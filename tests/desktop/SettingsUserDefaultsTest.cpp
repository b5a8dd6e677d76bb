#include "SettingsUserDefaults.h"

#include "CapturedLog.h"
#include "TemporaryFolder.h"

#include <QFile>
#include <QTest>

using namespace nookle;

class SettingsUserDefaultsTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theDefaultPathFollowsTheConfigurationFolder();
    void absentValuesAreTheRegisteredOnesThenFalseAndZero();
    void storedValuesWinOverRegisteredOnes();
    void aValueOfAnotherTypeCountsAsAbsent_data();
    void aValueOfAnotherTypeCountsAsAbsent();
    void everyWriteIsOnDiskAtOnce();
    void writingKeepsWhatElseIsInTheFile();
    void textsOfADomainAreReadFromItsGroup();
    void readingWritesNothing();
    void whatCannotBeSavedIsKeptAndReportedOnce();
    void aSecondFailureAfterASuccessIsReportedAgain();
    void aTextWithACommaThatIsNotQuotedIsReported();
    void damagedFilesReadAsAbsent_data();
    void damagedFilesReadAsAbsent();
    void aPipeIsNotWaitedFor();

private:
    [[nodiscard]] static QByteArray contents(const QString& path);
};

QByteArray SettingsUserDefaultsTest::contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void SettingsUserDefaultsTest::theDefaultPathFollowsTheConfigurationFolder()
{
    const QByteArray previous = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", "/some/where");
    QCOMPARE(SettingsUserDefaults::defaultPath(), QStringLiteral("/some/where/Nookle/Nookle.conf"));
    if (previous.isNull())
        qunsetenv("XDG_CONFIG_HOME");
    else
        qputenv("XDG_CONFIG_HOME", previous);
}

void SettingsUserDefaultsTest::absentValuesAreTheRegisteredOnesThenFalseAndZero()
{
    const TemporaryFolder folder;
    SettingsUserDefaults defaults(QFile::decodeName(folder.path("Nookle.conf")));
    QCOMPARE(defaults.boolean(QStringLiteral("flag")), false);
    QCOMPARE(defaults.integer(QStringLiteral("number")), 0);
    defaults.registerDefaults({ { QStringLiteral("flag"), true }, { QStringLiteral("number"), qint64(86400) } });
    QCOMPARE(defaults.boolean(QStringLiteral("flag")), true);
    QCOMPARE(defaults.integer(QStringLiteral("number")), 86400);
    QCOMPARE(defaults.boolean(QStringLiteral("number")), false);
    QCOMPARE(defaults.integer(QStringLiteral("flag")), 0);
}

void SettingsUserDefaultsTest::storedValuesWinOverRegisteredOnes()
{
    const TemporaryFolder folder;
    const QString path =
        QFile::decodeName(folder.makeFile("Nookle.conf", "[General]\nflag=false\nnumber=-7\nbig=9000000000\n"));
    SettingsUserDefaults defaults(path);
    defaults.registerDefaults({ { QStringLiteral("flag"), true }, { QStringLiteral("number"), 5 } });
    QCOMPARE(defaults.boolean(QStringLiteral("flag")), false);
    QCOMPARE(defaults.integer(QStringLiteral("number")), -7);
    QCOMPARE(defaults.integer(QStringLiteral("big")), 9'000'000'000);
}

void SettingsUserDefaultsTest::aValueOfAnotherTypeCountsAsAbsent_data()
{
    QTest::addColumn<QByteArray>("stored");
    for (const char* stored : { "yes", "1, 2", "@ByteArray(x)", "@Invalid()", "@Size(1 2)", "12abc", "1.5", "\"\"",
                                "99999999999999999999", "TRUE" })
        QTest::newRow(stored) << QByteArray(stored);
}

void SettingsUserDefaultsTest::aValueOfAnotherTypeCountsAsAbsent()
{
    QFETCH(QByteArray, stored);
    const TemporaryFolder folder;
    const QByteArray text = "[General]\nflag=" + stored + "\nnumber=" + stored + "\n";
    SettingsUserDefaults defaults(QFile::decodeName(folder.makeFile("Nookle.conf", text)));
    QCOMPARE(defaults.boolean(QStringLiteral("flag")), false);
    QCOMPARE(defaults.integer(QStringLiteral("number")), 0);
    defaults.registerDefaults({ { QStringLiteral("flag"), true }, { QStringLiteral("number"), 5 } });
    QCOMPARE(defaults.boolean(QStringLiteral("flag")), true);
    QCOMPARE(defaults.integer(QStringLiteral("number")), 5);
}

void SettingsUserDefaultsTest::everyWriteIsOnDiskAtOnce()
{
    const TemporaryFolder folder;
    const QString path = QFile::decodeName(folder.path("new/folders/Nookle.conf"));
    SettingsUserDefaults defaults(path);
    defaults.set(true, QStringLiteral("collectScreenshots"));
    QCOMPARE(contents(path), QByteArray("[General]\ncollectScreenshots=true\n"));
    defaults.set(qint64(604800), QStringLiteral("expiry"));
    defaults.set(false, QStringLiteral("collectScreenshots"));
    QCOMPARE(contents(path), QByteArray("[General]\ncollectScreenshots=false\nexpiry=604800\n"));
    QCOMPARE(defaults.integer(QStringLiteral("expiry")), 604800);
    QCOMPARE(defaults.boolean(QStringLiteral("collectScreenshots")), false);
}

void SettingsUserDefaultsTest::writingKeepsWhatElseIsInTheFile()
{
    const TemporaryFolder folder;
    const QString path =
        QFile::decodeName(folder.makeFile("Nookle.conf", "[General]\nother=x\n\n[screenshots]\nlocation=/a\n"));
    SettingsUserDefaults defaults(path);
    defaults.set(qint64(1), QStringLiteral("expiry"));
    QCOMPARE(contents(path), QByteArray("[General]\nexpiry=1\nother=x\n\n[screenshots]\nlocation=/a\n"));
}

void SettingsUserDefaultsTest::textsOfADomainAreReadFromItsGroup()
{
    const TemporaryFolder folder;
    const QByteArray text = "[General]\nlocation=/wrong\n[screenshots]\nlocation=/home/\xc3\xbc/My Shots\nempty=\n"
                            "quoted=\"a, b\"\n";
    const SettingsUserDefaults defaults(QFile::decodeName(folder.makeFile("Nookle.conf", text)));
    const QString domain = QStringLiteral("screenshots");
    QCOMPARE(defaults.string(domain, QStringLiteral("location")), QStringLiteral("/home/\u00fc/My Shots"));
    QCOMPARE(defaults.string(domain, QStringLiteral("quoted")), QStringLiteral("a, b"));
    QCOMPARE(defaults.string(domain, QStringLiteral("empty")), QString());
    QVERIFY(!defaults.string(domain, QStringLiteral("absent")));
    QVERIFY(!defaults.string(QStringLiteral("other"), QStringLiteral("location")));
}

void SettingsUserDefaultsTest::readingWritesNothing()
{
    const TemporaryFolder folder;
    const QString path = QFile::decodeName(folder.path("Nookle/Nookle.conf"));
    {
        SettingsUserDefaults defaults(path);
        defaults.registerDefaults({ { QStringLiteral("flag"), true } });
        QVERIFY(defaults.boolean(QStringLiteral("flag")));
    }
    QVERIFY(!QFile::exists(QFile::decodeName(folder.path("Nookle"))));
}

void SettingsUserDefaultsTest::whatCannotBeSavedIsKeptAndReportedOnce()
{
    const TemporaryFolder folder;
    const QString path = QFile::decodeName(folder.makeFile("notAFolder")) + QStringLiteral("/Nookle.conf");
    const CapturedLog log;
    SettingsUserDefaults defaults(path);
    defaults.registerDefaults({ { QStringLiteral("flag"), true } });
    QCOMPARE(log.lines(), QStringList());

    defaults.set(false, QStringLiteral("flag"));
    defaults.set(qint64(3600), QStringLiteral("expiry"));
    QCOMPARE(defaults.boolean(QStringLiteral("flag")), false);
    QCOMPARE(defaults.integer(QStringLiteral("expiry")), 3600);
    QCOMPARE(log.lines().size(), 1);
    const QString expected = QStringLiteral("Nookle: could not save settings: ") + path;
    QVERIFY2(log.lines().constFirst().startsWith(expected), qPrintable(log.lines().constFirst()));
}

void SettingsUserDefaultsTest::aSecondFailureAfterASuccessIsReportedAgain()
{
    const TemporaryFolder folder;
    const QByteArray obstacle = folder.makeFile("Nookle");
    const QString path = QFile::decodeName(obstacle) + QStringLiteral("/Nookle.conf");
    const CapturedLog log;
    SettingsUserDefaults defaults(path);
    defaults.set(true, QStringLiteral("first"));
    QCOMPARE(log.lines().size(), 1);

    deleteFile(obstacle);
    defaults.set(true, QStringLiteral("second"));
    QCOMPARE(log.lines().size(), 1);
    QCOMPARE(contents(path), QByteArray("[General]\nfirst=true\nsecond=true\n"));

    std::filesystem::remove_all(obstacle.toStdString());
    folder.makeFile("Nookle");
    defaults.set(true, QStringLiteral("third"));
    QCOMPARE(log.lines().size(), 2);
    QVERIFY(defaults.boolean(QStringLiteral("third")));
}

void SettingsUserDefaultsTest::aTextWithACommaThatIsNotQuotedIsReported()
{
    const TemporaryFolder folder;
    const QByteArray text = "[General]\nshortcut=Ctrl+,\nflag=true\n[screenshots]\nlocation=\"/a, b\"\n";
    const QString path = QFile::decodeName(folder.makeFile("Nookle.conf", text));
    const CapturedLog log;
    const SettingsUserDefaults defaults(path);
    for (int reading = 0; reading < 2; ++reading)
        QVERIFY(!defaults.string(QString(), QStringLiteral("shortcut")));
    QCOMPARE(defaults.string(QStringLiteral("screenshots"), QStringLiteral("location")), QStringLiteral("/a, b"));
    QCOMPARE(log.lines(),
             QStringList{ QStringLiteral(
                 "Nookle: the setting \"shortcut\" is ignored: a text with a comma needs quotation marks") });
}

void SettingsUserDefaultsTest::damagedFilesReadAsAbsent_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("binary") << QByteArray("\x00\xff\xfe[General\n=\n\x01", 15);
    QTest::newRow("no equals sign") << QByteArray("[General]\nflag\nnumber\n");
    QTest::newRow("only a bracket") << QByteArray("[");
}

void SettingsUserDefaultsTest::damagedFilesReadAsAbsent()
{
    QFETCH(QByteArray, text);
    const TemporaryFolder folder;
    const QString path = QFile::decodeName(folder.makeFile("Nookle.conf", text));
    const CapturedLog log;
    SettingsUserDefaults defaults(path);
    QCOMPARE(defaults.boolean(QStringLiteral("flag")), false);
    defaults.set(qint64(5), QStringLiteral("number"));
    QVERIFY(contents(path).contains("number=5\n"));
    QCOMPARE(SettingsUserDefaults(path).integer(QStringLiteral("number")), 5);
    QCOMPARE(log.lines(), QStringList());
}

void SettingsUserDefaultsTest::aPipeIsNotWaitedFor()
{
    const TemporaryFolder folder;
    const QByteArray pipe = folder.path("Nookle.conf");
    QCOMPARE(::mkfifo(pipe.constData(), 0600), 0);
    const CapturedLog log;
    SettingsUserDefaults defaults(QFile::decodeName(pipe));
    QCOMPARE(defaults.boolean(QStringLiteral("flag")), false);
    defaults.set(true, QStringLiteral("flag"));
    QCOMPARE(defaults.boolean(QStringLiteral("flag")), true);
    QCOMPARE(log.lines().size(), 1);
}

QTEST_GUILESS_MAIN(SettingsUserDefaultsTest)
#include "SettingsUserDefaultsTest.moc"
