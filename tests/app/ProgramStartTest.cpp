#include "ProgramStart.h"

#include "FileUrl.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

class ProgramStartTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theReasonIsKnown_data();
    void theReasonIsKnown();
    void theVariableIsTakenAway();
    void theFirstStartHasNeitherIndexNorSettings_data();
    void theFirstStartHasNeitherIndexNorSettings();
};

void ProgramStartTest::theReasonIsKnown_data()
{
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<bool>("isSessionClient");
    QTest::addColumn<QByteArray>("groups");
    QTest::addColumn<int>("reason");
    const auto row = [](const char* title, const char* variable, bool isSessionClient, const char* groups,
                        StartReason reason) {
        QTest::newRow(title) << QByteArray(variable) << isSessionClient << QByteArray(groups) << int(reason);
    };
    row("by hand", "", false, "0::/user.slice/user-1000.slice/session-2.scope\n", StartReason::user);
    row("from a menu of systemd", "", false, "0::/user.slice/app.slice/app-gnome-org.nookle.Nookle-77.scope\n",
        StartReason::user);
    row("the own entry", "login", false, "", StartReason::login);
    row("the own service", "request", false, "", StartReason::request);
    row("an unknown value", "other", false, "", StartReason::user);
    row("a client of the session", "", true, "", StartReason::login);
    row("a unit of systemd", "", false, "0::/user.slice/app.slice/app-org.nookle.Nookle@autostart.service\n",
        StartReason::login);
}

void ProgramStartTest::theReasonIsKnown()
{
    QFETCH(const QByteArray, variable);
    QFETCH(const bool, isSessionClient);
    QFETCH(const QByteArray, groups);
    QFETCH(const int, reason);
    QCOMPARE(int(startReason(variable, isSessionClient, groups)), reason);
}

void ProgramStartTest::theVariableIsTakenAway()
{
    qputenv("NOOKLE_START", "request");
    QCOMPARE(takeStartReason(), StartReason::request);
    QVERIFY(!qEnvironmentVariableIsSet("NOOKLE_START"));
    QVERIFY(takeStartReason() != StartReason::request);
}

void ProgramStartTest::theFirstStartHasNeitherIndexNorSettings_data()
{
    QTest::addColumn<bool>("hasIndex");
    QTest::addColumn<bool>("hasSettings");
    QTest::addColumn<bool>("isFirst");
    QTest::newRow("nothing") << false << false << true;
    QTest::newRow("an index") << true << false << false;
    QTest::newRow("settings") << false << true << false;
}

void ProgramStartTest::theFirstStartHasNeitherIndexNorSettings()
{
    QFETCH(const bool, hasIndex);
    QFETCH(const bool, hasSettings);
    QFETCH(const bool, isFirst);
    const QTemporaryDir folder;
    const auto make = [&](const char* name) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
    };
    if (hasIndex)
        make("index.json");
    if (hasSettings)
        make("Nookle.conf");
    QCOMPARE(isFirstStart(fileUrl(folder.path().toUtf8()), folder.filePath(QStringLiteral("Nookle.conf"))), isFirst);
}

QTEST_GUILESS_MAIN(ProgramStartTest)
#include "ProgramStartTest.moc"
