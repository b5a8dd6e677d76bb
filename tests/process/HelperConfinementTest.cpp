#include "HelperConfinement.h"

#include "CapturedLog.h"
#include "TemporaryFolder.h"

#include <QTest>

#include <sys/stat.h>

using namespace nookle;

class HelperConfinementTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();
    void singleFailureLeavesTheSandbox();
    void secondFailureCostsTheSandboxForOneStart();
    void helperThatStartsNowhereIsGivenUp();
    void withoutSandboxTheHelperRunsWithout();
    void sandboxThatIsInstalledLaterIsUsed();
    void logIsToldOnceUntilTheSandboxWorksAgain();

private:
    using Confinement = HelperConfinement::Confinement;

    void installSandbox() const { ::chmod(m_folder.makeFile("bwrap").constData(), 0700); }
    /// Lets the helper start without a sandbox only.
    void loseSandbox();

    QByteArray m_path;
    TemporaryFolder m_folder;
    std::unique_ptr<HelperConfinement> m_confinement;
};

void HelperConfinementTest::init()
{
    m_path = qgetenv("PATH");
    qputenv("PATH", m_folder.path());
    installSandbox();
    m_confinement = std::make_unique<HelperConfinement>(QStringLiteral("helper"), Confinement::sandbox);
}

void HelperConfinementTest::cleanup()
{
    qputenv("PATH", m_path);
}

void HelperConfinementTest::loseSandbox()
{
    for (int count = 0; count < 2; ++count) {
        QCOMPARE(m_confinement->next(), Confinement::sandbox);
        QVERIFY(m_confinement->failed());
    }
    QCOMPARE(m_confinement->next(), Confinement::none);
    m_confinement->succeeded();
}

void HelperConfinementTest::singleFailureLeavesTheSandbox()
{
    const CapturedLog log;
    QCOMPARE(m_confinement->next(), Confinement::sandbox);
    QVERIFY(m_confinement->failed());
    QCOMPARE(m_confinement->next(), Confinement::sandbox);
    m_confinement->succeeded();
    QCOMPARE(m_confinement->next(), Confinement::sandbox);
    QVERIFY(log.lines().isEmpty());
}

void HelperConfinementTest::secondFailureCostsTheSandboxForOneStart()
{
    const CapturedLog log;
    loseSandbox();
    QCOMPARE(m_confinement->next(), Confinement::sandbox);
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(log.lines().first().endsWith(QStringLiteral("the helper does not start in a sandbox, and runs without")));
}

void HelperConfinementTest::helperThatStartsNowhereIsGivenUp()
{
    const CapturedLog log;
    for (int count = 0; count < 2; ++count) {
        QCOMPARE(m_confinement->next(), Confinement::sandbox);
        QVERIFY(m_confinement->failed());
    }
    QCOMPARE(m_confinement->next(), Confinement::none);
    QVERIFY(!m_confinement->failed());
    QCOMPARE(m_confinement->next(), Confinement::sandbox);
}

void HelperConfinementTest::withoutSandboxTheHelperRunsWithout()
{
    qputenv("PATH", m_folder.path("missing"));
    QCOMPARE(m_confinement->next(), Confinement::none);
    QVERIFY(!m_confinement->failed());
}

void HelperConfinementTest::sandboxThatIsInstalledLaterIsUsed()
{
    qputenv("PATH", m_folder.path("missing"));
    QCOMPARE(m_confinement->next(), Confinement::none);
    m_confinement->succeeded();
    qputenv("PATH", m_folder.path());
    QCOMPARE(m_confinement->next(), Confinement::sandbox);
}

void HelperConfinementTest::logIsToldOnceUntilTheSandboxWorksAgain()
{
    const CapturedLog log;
    loseSandbox();
    loseSandbox();
    QCOMPARE(log.lines().size(), 1);
    QCOMPARE(m_confinement->next(), Confinement::sandbox);
    m_confinement->succeeded();
    loseSandbox();
    QCOMPARE(log.lines().size(), 2);
}

QTEST_GUILESS_MAIN(HelperConfinementTest)
#include "HelperConfinementTest.moc"
