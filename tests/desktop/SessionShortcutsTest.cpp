#include "SessionShortcuts.h"

#include "BusRounds.h"
#include "CapturedLog.h"
#include "FakeKdeShortcuts.h"
#include "FakeMainQueue.h"
#include "FakeShortcutPortal.h"
#include "FakeUserDefaults.h"
#include "PrivateBus.h"

#include <QDBusConnection>
#include <QTest>

#include <memory>

using namespace nookle;

class SessionShortcutsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void thePortalComesFirst();
    void kdesServiceComesSecond();
    void withoutEitherTheCommandIsNamedOnce();
    void theReasonOfThePortalIsKept();
    void aNoIsRemembered();
    void keysThatWorkAreNotDeclined();
    void theUserCanBeAskedAgain();
    void kdesServiceIsNotUsedAfterANo();
    void aPortalThatComesLateReplacesNothing();
    void aPortalThatComesLateIsUsedWhereThereIsNothing();
    void aPressIsThatOfItsShortcut();
    void shortcutsOfOneTurnAreAskedForTogether();
    void aShortcutThatIsRegisteredAgainKeepsItsName();
    void aPressMayUnregisterItsShortcut();
    void theLastOneEndsTheSession();
    void anUnknownKeyIsRefused();

private:
    void startPortal();
    void startKde();
    void makeShortcuts();
    void registerToggle();
    void settleAll()
    {
        settle({ QStringLiteral("nookle-shortcuts"), FakeShortcutPortal::connectionName(),
                 FakeKdeShortcuts::connectionName() });
    }
    [[nodiscard]] bool isDeclined() const { return m_settings->boolean(QStringLiteral("shortcutDeclined")); }

    PrivateBus m_bus;
    std::unique_ptr<FakeShortcutPortal> m_portal;
    std::unique_ptr<FakeKdeShortcuts> m_kde;
    std::unique_ptr<SessionShortcuts> m_shortcuts;
    std::unique_ptr<Cancellable> m_toggle;
    /// Owned by the shortcuts.
    FakeMainQueue* m_queue = nullptr;
    FakeUserDefaults* m_settings = nullptr;
    int m_presses = 0;
};

namespace {

constexpr auto controlAltSuperD = QKeyCombination(Qt::CTRL | Qt::ALT | Qt::META, Qt::Key_D);

[[nodiscard]] QString first()
{
    return QStringLiteral("shortcut-1");
}

[[nodiscard]] QString second()
{
    return QStringLiteral("shortcut-2");
}

} // namespace

void SessionShortcutsTest::initTestCase()
{
    QVERIFY(!m_bus.address().isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address());
}

void SessionShortcutsTest::init()
{
    m_presses = 0;
    makeShortcuts();
}

void SessionShortcutsTest::cleanup()
{
    m_toggle.reset();
    m_shortcuts.reset();
    m_portal.reset();
    m_kde.reset();
}

void SessionShortcutsTest::startPortal()
{
    m_portal = std::make_unique<FakeShortcutPortal>(m_bus.address());
    m_portal->bindResults = { { QStringLiteral("shortcuts"),
                                QVariant::fromValue(FakeShortcutPortal::bound(first(), QStringLiteral("Win+D"))) } };
    QVERIFY(m_portal->start());
}

void SessionShortcutsTest::startKde()
{
    m_kde = std::make_unique<FakeKdeShortcuts>(m_bus.address());
    QVERIFY(m_kde->start());
}

void SessionShortcutsTest::makeShortcuts()
{
    auto queue = std::make_unique<FakeMainQueue>();
    auto settings = std::make_unique<FakeUserDefaults>();
    m_queue = queue.get();
    m_settings = settings.get();
    m_toggle.reset();
    // The former one ends its connection first, which has the same name.
    m_shortcuts.reset();
    m_shortcuts = std::make_unique<SessionShortcuts>(std::move(queue), std::move(settings));
}

void SessionShortcutsTest::registerToggle()
{
    m_toggle = m_shortcuts->registerShortcut(controlAltSuperD, QStringLiteral("Show or hide"), [this] { ++m_presses; });
    QVERIFY(m_toggle);
    m_queue->runPosted();
}

void SessionShortcutsTest::thePortalComesFirst()
{
    startPortal();
    startKde();
    registerToggle();
    QVERIFY(!m_shortcuts->obstacle().isEmpty());
    QTRY_COMPARE(m_shortcuts->boundKeys(), QStringLiteral("Win+D"));
    QCOMPARE(m_shortcuts->obstacle(), QString());
    QVERIFY(!m_shortcuts->canAskAgain());
    settleAll();
    QVERIFY(m_kde->calls.isEmpty());
}

void SessionShortcutsTest::kdesServiceComesSecond()
{
    startKde();
    registerToggle();
    QTRY_COMPARE(m_shortcuts->boundKeys(), QStringLiteral("Meta+Ctrl+Alt+D"));
    QCOMPARE(m_shortcuts->boundCombination(), Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::Key_D);
    QCOMPARE(m_shortcuts->obstacle(), QString());
    m_kde->press(QStringLiteral("org.nookle.Nookle"), first());
    QTRY_COMPARE(m_presses, 1);
}

void SessionShortcutsTest::withoutEitherTheCommandIsNamedOnce()
{
    const CapturedLog log;
    int changes = 0;
    connect(m_shortcuts.get(), &GlobalShortcuts::changed, this, [&] { ++changes; });
    QCOMPARE(m_shortcuts->wantedKeys(), QString());
    registerToggle();
    QTRY_COMPARE(log.lines().size(), 1);
    QCOMPARE(m_shortcuts->boundKeys(), QString());
    QCOMPARE(m_shortcuts->boundCombination(), std::nullopt);
    QCOMPARE(m_shortcuts->wantedKeys(), QStringLiteral("Ctrl+Alt+Super+D"));
    const QString command = QStringLiteral("gdbus call --session -d org.nookle.Nookle -o /org/nookle/Nookle"
                                           " -m org.freedesktop.Application.ActivateAction toggle '[]' '{}'");
    QVERIFY(log.lines().first().contains(command));
    QVERIFY(m_shortcuts->obstacle().contains(command));
    QVERIFY(changes > 0);
    QVERIFY(!m_shortcuts->canAskAgain());
    startPortal();
    m_portal->hasShortcuts = false;
    QTRY_VERIFY(m_portal->calls.contains(QStringLiteral("CreateSession")));
    settleAll();
    QVERIFY(m_shortcuts->obstacle().contains(command));
    QCOMPARE(log.lines().size(), 1);
}

void SessionShortcutsTest::theReasonOfThePortalIsKept()
{
    const CapturedLog log;
    startPortal();
    m_portal->registryRefusal = QStringLiteral("App info not found");
    registerToggle();
    QTRY_VERIFY(m_shortcuts->obstacle().contains(QLatin1String("org.nookle.Nookle.desktop")));
    QVERIFY(m_shortcuts->obstacle().contains(QLatin1String("gdbus call")));
    QCOMPARE(log.lines().size(), 2);
}

void SessionShortcutsTest::aNoIsRemembered()
{
    startPortal();
    m_portal->bindResponse = 1;
    registerToggle();
    QTRY_VERIFY(isDeclined());
    QVERIFY(!m_shortcuts->obstacle().isEmpty());
    QVERIFY(m_shortcuts->canAskAgain());

    m_portal.reset();
    startPortal();
    makeShortcuts();
    m_settings->set(true, QStringLiteral("shortcutDeclined"));
    registerToggle();
    settleAll();
    QVERIFY(m_portal->calls.isEmpty());
    QVERIFY(!m_shortcuts->obstacle().isEmpty());
    QVERIFY(m_shortcuts->canAskAgain());
}

void SessionShortcutsTest::keysThatWorkAreNotDeclined()
{
    startPortal();
    m_portal->bindResponse = 2;
    m_portal->bindResults.clear();
    registerToggle();
    QTRY_VERIFY(isDeclined());
    QVERIFY(m_shortcuts->canAskAgain());
    m_portal->press(m_portal->session, first());
    QTRY_COMPARE(m_presses, 1);
    QVERIFY(!isDeclined());
    QVERIFY(!m_shortcuts->canAskAgain());
}

void SessionShortcutsTest::theUserCanBeAskedAgain()
{
    startPortal();
    m_portal->bindResponse = 1;
    registerToggle();
    QTRY_VERIFY(isDeclined());
    m_portal->bindResponse = 0;
    m_shortcuts->askAgain();
    QVERIFY(!isDeclined());
    QTRY_COMPARE(m_shortcuts->boundKeys(), QStringLiteral("Win+D"));
    QCOMPARE(m_portal->programs.size(), 1);
    QVERIFY(!m_shortcuts->canAskAgain());
    m_portal->closeSession();
    QTRY_VERIFY(m_shortcuts->canAskAgain());
}

void SessionShortcutsTest::kdesServiceIsNotUsedAfterANo()
{
    startPortal();
    startKde();
    m_portal->bindResponse = 1;
    registerToggle();
    QTRY_VERIFY(isDeclined());
    settleAll();
    QVERIFY(m_kde->calls.isEmpty());
}

void SessionShortcutsTest::aPortalThatComesLateReplacesNothing()
{
    startKde();
    registerToggle();
    QTRY_COMPARE(m_shortcuts->boundKeys(), QStringLiteral("Meta+Ctrl+Alt+D"));
    startPortal();
    settleAll();
    QVERIFY(m_portal->calls.isEmpty());
    QCOMPARE(m_shortcuts->boundKeys(), QStringLiteral("Meta+Ctrl+Alt+D"));
}

void SessionShortcutsTest::aPortalThatComesLateIsUsedWhereThereIsNothing()
{
    const CapturedLog log;
    registerToggle();
    QTRY_COMPARE(log.lines().size(), 1);
    startPortal();
    QTRY_COMPARE(m_shortcuts->boundKeys(), QStringLiteral("Win+D"));
    startKde();
    settleAll();
    QVERIFY(m_kde->calls.isEmpty());
}

void SessionShortcutsTest::aPressIsThatOfItsShortcut()
{
    startPortal();
    registerToggle();
    int others = 0;
    const auto other = m_shortcuts->registerShortcut(controlAltSuperD, QString(), [&] { ++others; });
    m_queue->runPosted();
    QTRY_COMPARE(m_portal->wanted.size(), 2);
    QTRY_COMPARE(m_shortcuts->boundKeys(), QStringLiteral("Win+D"));
    m_portal->press(m_portal->session, second());
    QTRY_COMPARE(others, 1);
    QCOMPARE(m_presses, 0);
    m_portal->press(m_portal->session, first());
    QTRY_COMPARE(m_presses, 1);
    QCOMPARE(others, 1);
}

void SessionShortcutsTest::shortcutsOfOneTurnAreAskedForTogether()
{
    startPortal();
    const auto one = m_shortcuts->registerShortcut(controlAltSuperD, QString(), [] {});
    const auto other = m_shortcuts->registerShortcut(controlAltSuperD, QString(), [] {});
    m_queue->runPosted();
    QTRY_COMPARE(m_shortcuts->boundKeys(), QStringLiteral("Win+D"));
    QCOMPARE(m_portal->wanted.size(), 2);
    QCOMPARE(m_portal->calls.count(QStringLiteral("BindShortcuts")), 1);
}

void SessionShortcutsTest::aShortcutThatIsRegisteredAgainKeepsItsName()
{
    startPortal();
    registerToggle();
    QTRY_COMPARE(m_shortcuts->boundKeys(), QStringLiteral("Win+D"));
    m_toggle.reset();
    registerToggle();
    QTRY_COMPARE(m_shortcuts->boundKeys(), QStringLiteral("Win+D"));
    QCOMPARE(m_portal->wanted.first().id, first());
}

void SessionShortcutsTest::aPressMayUnregisterItsShortcut()
{
    startPortal();
    const auto kept = std::make_shared<int>(0);
    m_toggle = m_shortcuts->registerShortcut(controlAltSuperD, QString(), [this, kept] {
        m_toggle.reset();
        ++*kept;
    });
    m_queue->runPosted();
    QTRY_COMPARE(m_shortcuts->boundKeys(), QStringLiteral("Win+D"));
    m_portal->press(m_portal->session, first());
    QTRY_COMPARE(*kept, 1);
    QCOMPARE(kept.use_count(), 1L);
}

void SessionShortcutsTest::theLastOneEndsTheSession()
{
    startPortal();
    registerToggle();
    QTRY_COMPARE(m_shortcuts->boundKeys(), QStringLiteral("Win+D"));
    m_toggle.reset();
    QCOMPARE(m_shortcuts->boundKeys(), QString());
    QTRY_COMPARE(m_portal->closed, QStringList{ m_portal->session });
}

void SessionShortcutsTest::anUnknownKeyIsRefused()
{
    QVERIFY(!m_shortcuts->registerShortcut(QKeyCombination(Qt::CTRL, Qt::Key_unknown), QString(), [] {}));
}

QTEST_GUILESS_MAIN(SessionShortcutsTest)
#include "SessionShortcutsTest.moc"
