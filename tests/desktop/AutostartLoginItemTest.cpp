#include "AutostartLoginItem.h"

#include "CapturedLog.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>
#include <memory>

#include <sys/resource.h>

using namespace nookle;

class AutostartLoginItemTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void withoutAnEntryNothingIsRegistered();
    void aRegisteredProgramIsEnabledAndItsEntryIsValid_data();
    void aRegisteredProgramIsEnabledAndItsEntryIsValid();
    void theDesktopWouldStartThatVeryProgram();
    void whatTheDesktopSwitchedOffAwaitsApproval_data();
    void whatTheDesktopSwitchedOffAwaitsApproval();
    void registeringAgainLeavesTheDesktopsSwitchAlone_data();
    void registeringAgainLeavesTheDesktopsSwitchAlone();
    void anEntryForThisDesktopIsEnabled();
    void anEntryWithoutAProgramIsNotFound();
    void anEntryThatIsNoneIsNotFoundAndIsReplaced();
    void theEntryOfARemovedProgramIsPassedOver();
    void anOldEntryOfThisProgramIsRenewed();
    void anotherEntryIsLeftAlone_data();
    void anotherEntryIsLeftAlone();
    void withoutAnEntryNoneIsMade();
    void anOldEntryThatCannotBeWrittenIsLogged();
    void unregisteringRemovesTheEntry();
    void unregisteringTwiceIsNoFailure();
    void aFolderThatCannotBeMadeIsAFailure();
    void anEntryThatCannotBeWrittenIsAFailure();
    void anEntryThatCannotBeRemovedIsAFailure();

private:
    void makeProgram(const QString& path);
    void writeEntry(const QByteArray& extraLines);
    /// Without the variable, as older versions wrote it.
    void writeOldEntry(const QByteArray& extraLines);
    [[nodiscard]] QByteArray entry() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_program;
    QString m_entryPath;
    std::unique_ptr<AutostartLoginItem> m_item;
};

namespace {

void addSwitches()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("hidden") << QByteArray("Hidden=true\n");
    QTest::newRow("switched off") << QByteArray("X-GNOME-Autostart-enabled=false\n");
    QTest::newRow("only in others") << QByteArray("OnlyShowIn=KDE;GNOME;\n");
    QTest::newRow("not in this one") << QByteArray("NotShowIn=XFCE;\n");
}

} // namespace

void AutostartLoginItemTest::initTestCase()
{
    // The library reads it once.
    qputenv("XDG_CURRENT_DESKTOP", "XFCE");
}

void AutostartLoginItemTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    m_program = m_folder->filePath(QStringLiteral("bin/nookle"));
    makeProgram(m_program);
    m_entryPath = m_folder->filePath(QStringLiteral("autostart/org.nookle.Nookle.desktop"));
    m_item = std::make_unique<AutostartLoginItem>(m_program, m_entryPath);
}

void AutostartLoginItemTest::makeProgram(const QString& path)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\necho started > \"$0.started\"\n");
    QVERIFY(file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

void AutostartLoginItemTest::writeEntry(const QByteArray& extraLines)
{
    QVERIFY(QDir().mkpath(QFileInfo(m_entryPath).path()));
    QFile file(m_entryPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[Desktop Entry]\nType=Application\nName=Nookle\nExec=" + m_program.toUtf8() + "\n" + extraLines);
}

void AutostartLoginItemTest::writeOldEntry(const QByteArray& extraLines)
{
    writeEntry(extraLines);
    const QByteArray program = m_program.toUtf8();
    const QByteArray quoted = '"' + program + '"';
    const QByteArray content = entry().replace(program, quoted);
    QFile file(m_entryPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray AutostartLoginItemTest::entry() const
{
    QFile file(m_entryPath);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void AutostartLoginItemTest::withoutAnEntryNothingIsRegistered()
{
    QCOMPARE(m_item->status(), LoginItem::Status::notRegistered);
}

void AutostartLoginItemTest::aRegisteredProgramIsEnabledAndItsEntryIsValid_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << QStringLiteral("nookle");
    QTest::newRow("with spaces") << QStringLiteral("my programs/nookle the shelf");
    QTest::newRow("with signs") << QStringLiteral("\"off\" $HOME `ls` back\\slash/nookle");
    QTest::newRow("beyond ASCII") << QStringLiteral("Rücken/nookle");
}

void AutostartLoginItemTest::aRegisteredProgramIsEnabledAndItsEntryIsValid()
{
    QFETCH(const QString, name);
    const QString program = m_folder->filePath(name);
    makeProgram(program);
    AutostartLoginItem item(program, m_entryPath);
    const auto failure = item.registerItem();
    QVERIFY2(!failure, failure ? qPrintable(failure->description) : "");
    QCOMPARE(item.status(), LoginItem::Status::enabled);
    QProcess validator;
    validator.setProcessChannelMode(QProcess::MergedChannels);
    validator.start(QStringLiteral("desktop-file-validate"), { m_entryPath });
    QVERIFY2(validator.waitForFinished() && validator.exitCode() == 0, validator.readAll().constData());
}

void AutostartLoginItemTest::theDesktopWouldStartThatVeryProgram()
{
    const QString program = m_folder->filePath(QStringLiteral("\"off\" $HOME `ls` back\\slash/nookle"));
    makeProgram(program);
    AutostartLoginItem item(program, m_entryPath);
    QVERIFY(!item.registerItem());
    QCOMPARE(QProcess::execute(QStringLiteral("gio"), { QStringLiteral("launch"), m_entryPath }), 0);
    QTRY_VERIFY(QFile::exists(program + QStringLiteral(".started")));
}

void AutostartLoginItemTest::whatTheDesktopSwitchedOffAwaitsApproval_data()
{
    addSwitches();
}

void AutostartLoginItemTest::whatTheDesktopSwitchedOffAwaitsApproval()
{
    QFETCH(const QByteArray, lines);
    writeEntry(lines);
    QCOMPARE(m_item->status(), LoginItem::Status::requiresApproval);
}

void AutostartLoginItemTest::registeringAgainLeavesTheDesktopsSwitchAlone_data()
{
    addSwitches();
}

void AutostartLoginItemTest::registeringAgainLeavesTheDesktopsSwitchAlone()
{
    QFETCH(const QByteArray, lines);
    writeEntry(lines + "Name[de]=Ablage\n");
    QVERIFY(!m_item->registerItem());
    QCOMPARE(m_item->status(), LoginItem::Status::requiresApproval);
    QVERIFY(entry().contains(lines.trimmed()));
    QVERIFY(entry().contains("Name[de]=Ablage"));
}

void AutostartLoginItemTest::anEntryForThisDesktopIsEnabled()
{
    writeEntry("OnlyShowIn=XFCE;\nX-GNOME-Autostart-enabled=true\nHidden=false\n");
    QCOMPARE(m_item->status(), LoginItem::Status::enabled);
}

void AutostartLoginItemTest::anEntryWithoutAProgramIsNotFound()
{
    writeEntry({});
    QVERIFY(QFile::remove(m_program));
    QCOMPARE(m_item->status(), LoginItem::Status::notFound);
}

void AutostartLoginItemTest::anEntryThatIsNoneIsNotFoundAndIsReplaced()
{
    QVERIFY(QDir().mkpath(QFileInfo(m_entryPath).path()));
    QFile file(m_entryPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("\0\xff nonsense\n[", 13));
    file.close();
    QCOMPARE(m_item->status(), LoginItem::Status::notFound);
    QVERIFY(!m_item->registerItem());
    QCOMPARE(m_item->status(), LoginItem::Status::enabled);
}

void AutostartLoginItemTest::theEntryOfARemovedProgramIsPassedOver()
{
    QVERIFY(!m_item->registerItem());
    QVERIFY(QFile::remove(m_program));
    // The key by which desktops know that the program is gone, before they try to start it.
    QVERIFY(entry().contains(QByteArray("\nTryExec=" + m_program.toUtf8() + '\n')));
    QCOMPARE(m_item->status(), LoginItem::Status::notFound);
}

void AutostartLoginItemTest::anOldEntryOfThisProgramIsRenewed()
{
    writeOldEntry("X-GNOME-Autostart-Delay=5\nHidden=true\n");
    m_item->renew();
    QVERIFY(entry().contains(QByteArray("\nExec=env NOOKLE_START=login \"" + m_program.toUtf8() + "\"\n")));
    QVERIFY(entry().contains("\nX-GNOME-Autostart-Delay=5\n"));
    // It stays as the desktop has switched it.
    QCOMPARE(m_item->status(), LoginItem::Status::requiresApproval);
}

void AutostartLoginItemTest::anotherEntryIsLeftAlone_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("lines");
    QTest::newRow("of another program") << QByteArray("/bin/true") << QByteArray();
    QTest::newRow("the user's own command") << QByteArray("env LANGUAGE=de %1") << QByteArray();
    QTest::newRow("of today") << QByteArray("env NOOKLE_START=login %1") << QByteArray("Comment=mine\n");
}

void AutostartLoginItemTest::anotherEntryIsLeftAlone()
{
    QFETCH(const QByteArray, command);
    QFETCH(const QByteArray, lines);
    writeEntry(lines);
    const QByteArray program = "Exec=" + m_program.toUtf8();
    const QByteArray other = "Exec=" + QByteArray(command).replace("%1", m_program.toUtf8());
    const QByteArray before = entry().replace(program, other);
    QFile file(m_entryPath);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(before);
    file.close();
    m_item->renew();
    QCOMPARE(entry(), before);
}

void AutostartLoginItemTest::withoutAnEntryNoneIsMade()
{
    m_item->renew();
    QVERIFY(!QFile::exists(m_entryPath));
}

void AutostartLoginItemTest::anOldEntryThatCannotBeWrittenIsLogged()
{
    writeOldEntry({});
    const QByteArray before = entry();
    CapturedLog log;
    // No file may grow.
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit usual{};
    QCOMPARE(::getrlimit(RLIMIT_FSIZE, &usual), 0);
    const rlimit none{ 0, usual.rlim_max };
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &none), 0);
    m_item->renew();
    QCOMPARE(::setrlimit(RLIMIT_FSIZE, &usual), 0);
    QCOMPARE(log.lines(),
             QStringList{ QStringLiteral("Nookle: could not renew the entry for the start at login: ") + m_entryPath });
    QCOMPARE(entry(), before);
}

void AutostartLoginItemTest::unregisteringRemovesTheEntry()
{
    QVERIFY(!m_item->registerItem());
    QVERIFY(!m_item->unregisterItem());
    QVERIFY(!QFile::exists(m_entryPath));
    QCOMPARE(m_item->status(), LoginItem::Status::notRegistered);
}

void AutostartLoginItemTest::unregisteringTwiceIsNoFailure()
{
    QVERIFY(!m_item->unregisterItem());
    QVERIFY(!m_item->unregisterItem());
}

void AutostartLoginItemTest::aFolderThatCannotBeMadeIsAFailure()
{
    QFile inTheWay(m_folder->filePath(QStringLiteral("autostart")));
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    const auto failure = m_item->registerItem();
    QVERIFY(failure);
    QVERIFY(failure->description.contains(m_entryPath));
    QCOMPARE(m_item->status(), LoginItem::Status::notRegistered);
}

void AutostartLoginItemTest::anEntryThatCannotBeWrittenIsAFailure()
{
    // A folder of that name is in the way.
    QVERIFY(QDir().mkpath(m_entryPath));
    QVERIFY(m_item->registerItem());
}

void AutostartLoginItemTest::anEntryThatCannotBeRemovedIsAFailure()
{
    QVERIFY(QDir().mkpath(m_entryPath));
    const auto failure = m_item->unregisterItem();
    QVERIFY(failure);
    QVERIFY(failure->description.contains(m_entryPath));
}

QTEST_GUILESS_MAIN(AutostartLoginItemTest)
#include "AutostartLoginItemTest.moc"
