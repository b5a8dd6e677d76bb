#include "PortalShortcuts.h"

#include "BusRounds.h"
#include "CapturedLog.h"
#include "FakeMainQueue.h"
#include "FakeShortcutPortal.h"
#include "PrivateBus.h"

#include <QDBusConnection>
#include <QTest>

#include <memory>

using namespace nookle;

using State = ShortcutStatus::State;

class PortalShortcutsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theProgramIsNamedBeforeItAsks();
    void theKeysAreAskedForWithTheirDescription();
    void keysThatThePortalHasKeptAreNotAskedFor();
    void aPressReachesTheProgram();
    void thePressOfAnotherSessionDoesNot();
    void otherKeysOfTheUserAreTold();
    void gnomesWordsAreMadeReadable();
    void aShortcutWithoutKeysIsNoNo();
    void keysThatTheUserTakesAwayAreNotShown();
    void aNoEndsTheSession();
    void aRefusalIsNoAnswerOfTheUser();
    void aFailureIsNoneIfTheKeysAreListed();
    void aFailureIsNoneIfTheKeysWork();
    void anAnswerOfAnotherShapeIsNoAnswer();
    void withoutAPortalThereAreNoShortcuts();
    void aPortalWithoutShortcutsIsAbsent();
    void anOlderPortalNeedsNoName();
    void aProgramThatIsNotInstalledIsTold();
    void aPortalWithoutShortcutsNeedsNoInstallation();
    void aSilentPortalIsGivenUpAndItsLateAnswerIsTaken();
    void aPortalThatStartsLaterIsAsked();
    void aPortalThatRestartsIsAskedAnew();
    void aPortalThatEndsIsStartedAgain();
    void aPortalThatEndsBeforeItAnswersIsNotStartedAgain();
    void aNoOutlivesARestart();
    void aSessionThatIsClosedIsSaid();
    void releasingEndsTheSession();
    void releasingWithdrawsTheQuestion();

private:
    void startPortal();
    void bind();
    /// Asks, and returns when the portal has bound the keys.
    void bindAll();
    [[nodiscard]] static QVariantMap listed(const QString& id, const QString& keys)
    {
        return { { QStringLiteral("shortcuts"), QVariant::fromValue(FakeShortcutPortal::bound(id, keys)) } };
    }
    void settleAll() { settle({ QStringLiteral("program"), FakeShortcutPortal::connectionName() }); }
    [[nodiscard]] State state() const { return m_shortcuts->status().state; }

    PrivateBus m_bus;
    std::unique_ptr<FakeMainQueue> m_queue;
    std::unique_ptr<FakeShortcutPortal> m_portal;
    std::unique_ptr<PortalShortcuts> m_shortcuts;
    QStringList m_pressed;
};

void PortalShortcutsTest::initTestCase()
{
    QVERIFY(!m_bus.address().isEmpty());
}

void PortalShortcutsTest::init()
{
    m_pressed.clear();
    m_queue = std::make_unique<FakeMainQueue>();
    const auto bus = QDBusConnection::connectToBus(QString::fromLatin1(m_bus.address()), QStringLiteral("program"));
    m_shortcuts = std::make_unique<PortalShortcuts>(bus, *m_queue);
    m_shortcuts->onPressed = [this](const QString& id) { m_pressed.append(id); };
}

void PortalShortcutsTest::cleanup()
{
    m_shortcuts.reset();
    m_portal.reset();
    QDBusConnection::disconnectFromBus(QStringLiteral("program"));
}

void PortalShortcutsTest::startPortal()
{
    m_portal = std::make_unique<FakeShortcutPortal>(m_bus.address());
    QVERIFY(m_portal->start());
}

void PortalShortcutsTest::bind()
{
    const QKeyCombination keys(Qt::CTRL | Qt::ALT | Qt::META, Qt::Key_D);
    m_shortcuts->bind({ { QStringLiteral("toggle"), keys, QStringLiteral("Show or hide") } });
}

void PortalShortcutsTest::bindAll()
{
    startPortal();
    bind();
    QTRY_COMPARE(state(), State::bound);
}

void PortalShortcutsTest::theProgramIsNamedBeforeItAsks()
{
    startPortal();
    bind();
    QCOMPARE(state(), State::asking);
    QVERIFY(!m_shortcuts->status().obstacle.isEmpty());
    QTRY_COMPARE(state(), State::bound);
    const QStringList expected{ QStringLiteral("Register"), QStringLiteral("CreateSession"),
                                QStringLiteral("ListShortcuts"), QStringLiteral("BindShortcuts") };
    QCOMPARE(m_portal->calls, expected);
    QCOMPARE(m_portal->programs, QStringList{ QStringLiteral("org.nookle.Nookle") });
    QCOMPARE(m_shortcuts->status().keys, QStringLiteral("Ctrl+Alt+Win+D"));
    QCOMPARE(m_shortcuts->status().obstacle, QString());
}

void PortalShortcutsTest::theKeysAreAskedForWithTheirDescription()
{
    bindAll();
    QCOMPARE(m_portal->bindSignature, QStringLiteral("oa(sa{sv})sa{sv}"));
    QCOMPARE(m_portal->boundSession, m_portal->session);
    QCOMPARE(m_portal->wanted.size(), 1);
    QCOMPARE(m_portal->wanted.first().id, QStringLiteral("toggle"));
    const QVariantMap expected{ { QStringLiteral("description"), QStringLiteral("Show or hide") },
                                { QStringLiteral("preferred_trigger"), QStringLiteral("CTRL+ALT+LOGO+d") } };
    QCOMPARE(m_portal->wanted.first().properties, expected);
}

void PortalShortcutsTest::keysThatThePortalHasKeptAreNotAskedFor()
{
    startPortal();
    m_portal->earlierResults = m_portal->bindResults;
    bind();
    QTRY_COMPARE(state(), State::bound);
    QCOMPARE(m_shortcuts->status().keys, QStringLiteral("Ctrl+Alt+Win+D"));
    m_portal->press(m_portal->session, QStringLiteral("toggle"));
    QTRY_COMPARE(m_pressed, QStringList{ QStringLiteral("toggle") });
    QVERIFY(!m_portal->calls.contains(QStringLiteral("BindShortcuts")));

    // Another shortcut is new.
    const QKeyCombination keys(Qt::CTRL, Qt::Key_D);
    m_shortcuts->bind({ { QStringLiteral("toggle"), keys, QString() }, { QStringLiteral("focus"), keys, QString() } });
    QTRY_COMPARE(m_portal->wanted.size(), 2);
}

void PortalShortcutsTest::aPressReachesTheProgram()
{
    bindAll();
    m_portal->press(m_portal->session, QStringLiteral("toggle"));
    m_portal->press(m_portal->session, QStringLiteral("focus"));
    const QStringList expected{ QStringLiteral("toggle"), QStringLiteral("focus") };
    QTRY_COMPARE(m_pressed, expected);
}

void PortalShortcutsTest::thePressOfAnotherSessionDoesNot()
{
    bindAll();
    m_portal->press(QString(m_portal->session + QStringLiteral("2")), QStringLiteral("toggle"));
    settleAll();
    QVERIFY(m_pressed.isEmpty());
}

void PortalShortcutsTest::otherKeysOfTheUserAreTold()
{
    bindAll();
    int changes = 0;
    m_shortcuts->onChanged = [&] { ++changes; };
    m_portal->changeKeys(QStringLiteral("toggle"), QStringLiteral("F12"));
    QTRY_COMPARE(m_shortcuts->status().keys, QStringLiteral("F12"));
    QCOMPARE(m_shortcuts->status().combination, QKeyCombination(Qt::Key_F12));
    QCOMPARE(changes, 1);
    m_portal->listResults = listed(QStringLiteral("toggle"), QStringLiteral("F12"));
    m_portal->changeKeys(QStringLiteral("another"), QStringLiteral("F11"));
    settleAll();
    QCOMPARE(changes, 1);
}

void PortalShortcutsTest::gnomesWordsAreMadeReadable()
{
    startPortal();
    m_portal->bindResponse = 2;
    m_portal->bindResults = listed(QStringLiteral("toggle"), QStringLiteral("Press <Control><Alt><Super>d"));
    bind();
    QTRY_COMPARE(state(), State::bound);
    QCOMPARE(m_shortcuts->status().keys, QStringLiteral("Ctrl+Alt+Super+D"));
}

// GNOME's question lets the user take the keys of one shortcut away and agree to the other.
void PortalShortcutsTest::aShortcutWithoutKeysIsNoNo()
{
    startPortal();
    m_portal->bindResponse = 2;
    m_portal->bindResults = listed(QStringLiteral("focus"), QStringLiteral("F12"));
    const QKeyCombination keys(Qt::CTRL, Qt::Key_D);
    m_shortcuts->bind({ { QStringLiteral("toggle"), keys, QString() }, { QStringLiteral("focus"), keys, QString() } });
    QTRY_COMPARE(state(), State::bound);
    QCOMPARE(m_shortcuts->status().keys, QString());
    QVERIFY(m_shortcuts->status().obstacle.contains(QLatin1String("No keys")));
    m_portal->press(m_portal->session, QStringLiteral("focus"));
    QTRY_COMPARE(m_pressed, QStringList{ QStringLiteral("focus") });
}

void PortalShortcutsTest::keysThatTheUserTakesAwayAreNotShown()
{
    bindAll();
    m_portal->changeKeys(QStringLiteral("focus"), QStringLiteral("F12"));
    QTRY_COMPARE(m_shortcuts->status().keys, QString());
    QCOMPARE(state(), State::bound);
    QVERIFY(m_shortcuts->status().obstacle.contains(QLatin1String("No keys")));
}

void PortalShortcutsTest::aNoEndsTheSession()
{
    startPortal();
    m_portal->bindResponse = 1;
    bind();
    QTRY_COMPARE(state(), State::declined);
    QVERIFY(!m_shortcuts->status().obstacle.isEmpty());
    QTRY_COMPARE(m_portal->closed, QStringList{ m_portal->session });
}

void PortalShortcutsTest::aRefusalIsNoAnswerOfTheUser()
{
    startPortal();
    m_portal->refusesBinding = true;
    bind();
    QTRY_COMPARE(state(), State::unbound);
    QVERIFY(!m_shortcuts->status().obstacle.isEmpty());
}

void PortalShortcutsTest::aFailureIsNoneIfTheKeysAreListed()
{
    startPortal();
    m_portal->bindResponse = 2;
    m_portal->listResults = std::exchange(m_portal->bindResults, {});
    bind();
    QTRY_COMPARE(state(), State::bound);
    QCOMPARE(m_shortcuts->status().keys, QStringLiteral("Ctrl+Alt+Win+D"));
}

void PortalShortcutsTest::aFailureIsNoneIfTheKeysWork()
{
    startPortal();
    m_portal->bindResponse = 2;
    m_portal->bindResults.clear();
    bind();
    QTRY_COMPARE(state(), State::declined);
    QVERIFY(!m_shortcuts->status().obstacle.isEmpty());
    m_portal->press(m_portal->session, QStringLiteral("toggle"));
    QTRY_COMPARE(m_pressed.size(), 1);
    QCOMPARE(state(), State::bound);
    QCOMPARE(m_shortcuts->status().keys, QString());
    QVERIFY(m_shortcuts->status().obstacle.contains(QLatin1String("which keys")));
}

void PortalShortcutsTest::anAnswerOfAnotherShapeIsNoAnswer()
{
    startPortal();
    m_portal->bindResults = { { QStringLiteral("shortcuts"), QStringLiteral("toggle") } };
    m_portal->listResults = { { QStringLiteral("shortcuts"), QStringList{ QStringLiteral("toggle") } } };
    bind();
    QTRY_COMPARE(state(), State::declined);
}

void PortalShortcutsTest::withoutAPortalThereAreNoShortcuts()
{
    bind();
    QTRY_COMPARE(state(), State::absent);
    QCOMPARE(m_queue->waitingTasks(), 0);
}

void PortalShortcutsTest::aPortalWithoutShortcutsIsAbsent()
{
    startPortal();
    m_portal->hasShortcuts = false;
    bind();
    QTRY_COMPARE(state(), State::absent);
}

void PortalShortcutsTest::anOlderPortalNeedsNoName()
{
    startPortal();
    m_portal->registryError = QDBusError::UnknownMethod;
    bind();
    QTRY_COMPARE(state(), State::bound);
}

void PortalShortcutsTest::aProgramThatIsNotInstalledIsTold()
{
    startPortal();
    m_portal->registryRefusal = QStringLiteral("App info not found");
    const CapturedLog log;
    bind();
    QTRY_COMPARE(state(), State::absent);
    QVERIFY(m_shortcuts->status().obstacle.contains(QLatin1String("org.nookle.Nookle.desktop")));
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(!m_portal->calls.contains(QStringLiteral("CreateSession")));
}

void PortalShortcutsTest::aPortalWithoutShortcutsNeedsNoInstallation()
{
    startPortal();
    m_portal->registryRefusal = QStringLiteral("App info not found");
    m_portal->hasShortcuts = false;
    const CapturedLog log;
    bind();
    QTRY_COMPARE(state(), State::absent);
    QCOMPARE(m_shortcuts->status().obstacle, QString());
    QVERIFY(log.lines().isEmpty());
    QCOMPARE(m_queue->waitingTasks(), 0);
}

void PortalShortcutsTest::aSilentPortalIsGivenUpAndItsLateAnswerIsTaken()
{
    startPortal();
    m_portal->answersSession = false;
    bind();
    QTRY_VERIFY(m_portal->calls.contains(QStringLiteral("CreateSession")));
    m_queue->advance(PortalShortcuts::patience - 1);
    QCOMPARE(state(), State::asking);
    m_queue->advance(1);
    QCOMPARE(state(), State::absent);
    m_portal->answerSession();
    QTRY_COMPARE(state(), State::bound);
}

void PortalShortcutsTest::aPortalThatStartsLaterIsAsked()
{
    bind();
    QTRY_COMPARE(state(), State::absent);
    startPortal();
    QTRY_COMPARE(state(), State::bound);
    QCOMPARE(m_portal->calls.count(QStringLiteral("CreateSession")), 1);
}

void PortalShortcutsTest::aPortalThatRestartsIsAskedAnew()
{
    bindAll();
    m_portal.reset();
    QTRY_COMPARE(state(), State::unbound);
    QCOMPARE(m_shortcuts->status().keys, QString());
    startPortal();
    QTRY_COMPARE(state(), State::bound);
    QCOMPARE(m_portal->programs.size(), 1);
    m_portal->press(m_portal->session, QStringLiteral("toggle"));
    QTRY_COMPARE(m_pressed.size(), 1);
    m_queue->advance(PortalShortcuts::restartDelay);
    settleAll();
    QCOMPARE(m_portal->calls.count(QStringLiteral("CreateSession")), 1);
}

void PortalShortcutsTest::aPortalThatEndsIsStartedAgain()
{
    bindAll();
    m_portal.reset();
    QTRY_COMPARE(state(), State::unbound);
    m_queue->advance(PortalShortcuts::restartDelay);
    QCOMPARE(state(), State::asking);
    // This bus cannot start it.
    QTRY_COMPARE(state(), State::absent);
    QCOMPARE(m_queue->waitingTasks(), 0);
}

void PortalShortcutsTest::aPortalThatEndsBeforeItAnswersIsNotStartedAgain()
{
    startPortal();
    m_portal->answersBinding = false;
    bind();
    QTRY_VERIFY(m_portal->calls.contains(QStringLiteral("BindShortcuts")));
    m_portal.reset();
    QTRY_COMPARE(state(), State::absent);
    QCOMPARE(m_queue->waitingTasks(), 0);
}

void PortalShortcutsTest::aNoOutlivesARestart()
{
    startPortal();
    m_portal->bindResponse = 1;
    bind();
    QTRY_COMPARE(state(), State::declined);
    m_portal.reset();
    startPortal();
    settleAll();
    QCOMPARE(state(), State::declined);
    QVERIFY(m_portal->calls.isEmpty());
    bind();
    QTRY_COMPARE(state(), State::bound);
}

void PortalShortcutsTest::aSessionThatIsClosedIsSaid()
{
    bindAll();
    m_portal->closeSession();
    QTRY_COMPARE(state(), State::unbound);
    QCOMPARE(m_shortcuts->status().keys, QString());
    bind();
    QTRY_COMPARE(state(), State::bound);
    QCOMPARE(m_portal->programs.size(), 1);
}

void PortalShortcutsTest::releasingEndsTheSession()
{
    bindAll();
    m_shortcuts->release();
    QTRY_COMPARE(m_portal->closed, QStringList{ m_portal->session });
    m_portal->press(m_portal->session, QStringLiteral("toggle"));
    settleAll();
    QVERIFY(m_pressed.isEmpty());
}

void PortalShortcutsTest::releasingWithdrawsTheQuestion()
{
    startPortal();
    m_portal->answersBinding = false;
    bind();
    QTRY_VERIFY(m_portal->calls.contains(QStringLiteral("BindShortcuts")));
    m_shortcuts->release();
    const QStringList expected{ m_portal->lastRequest, m_portal->session };
    QTRY_COMPARE(m_portal->closed, expected);
    QCOMPARE(m_queue->waitingTasks(), 0);
}

QTEST_GUILESS_MAIN(PortalShortcutsTest)
#include "PortalShortcutsTest.moc"
