#include "KdeShortcuts.h"

#include "BusRounds.h"
#include "FakeKdeShortcuts.h"
#include "PrivateBus.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QTest>

#include <memory>

using namespace nookle;

using State = ShortcutStatus::State;

class KdeShortcutsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theKeysAreRegisteredAndTold();
    void theKeysThatTheUserHasChosenAreKept();
    void aPressReachesTheProgram();
    void thePressOfAnotherProgramDoesNot();
    void aChangeInTheSettingsIsTold();
    void keysThatAnotherProgramHoldsAreTold();
    void releasingKeepsTheChoiceOfTheUser();
    void whatIsReleasedBeforeTheAnswerIsNotRegistered();
    void anotherShortcutReplacesTheFormerOne();
    void aProgramThatWasRemovedIsForgotten();
    void withoutTheServiceThereAreNoShortcuts();
    void aServiceThatStartsLaterIsUsed();
    void aServiceThatRestartsIsAskedAgain();

private:
    void startService();
    void bind(QKeyCombination keys = controlAltSuperD);
    void settleAll() { settle({ QStringLiteral("program"), FakeKdeShortcuts::connectionName() }); }
    [[nodiscard]] State state() const { return m_shortcuts->status().state; }
    void makeShortcuts(const QString& program);

    static constexpr auto controlAltSuperD = QKeyCombination(Qt::CTRL | Qt::ALT | Qt::META, Qt::Key_D);

    PrivateBus m_bus;
    std::unique_ptr<FakeKdeShortcuts> m_service;
    std::unique_ptr<KdeShortcuts> m_shortcuts;
    QStringList m_pressed;
};

namespace {

[[nodiscard]] QString toggle()
{
    return QStringLiteral("toggle");
}

} // namespace

void KdeShortcutsTest::initTestCase()
{
    QVERIFY(!m_bus.address().isEmpty());
}

void KdeShortcutsTest::init()
{
    m_pressed.clear();
    makeShortcuts(QCoreApplication::applicationFilePath());
}

void KdeShortcutsTest::makeShortcuts(const QString& program)
{
    const auto bus = QDBusConnection::connectToBus(QString::fromLatin1(m_bus.address()), QStringLiteral("program"));
    m_shortcuts = std::make_unique<KdeShortcuts>(bus, program);
    m_shortcuts->onPressed = [this](const QString& id) { m_pressed.append(id); };
}

void KdeShortcutsTest::cleanup()
{
    m_shortcuts.reset();
    m_service.reset();
    QDBusConnection::disconnectFromBus(QStringLiteral("program"));
}

void KdeShortcutsTest::startService()
{
    m_service = std::make_unique<FakeKdeShortcuts>(m_bus.address());
    QVERIFY(m_service->start());
}

void KdeShortcutsTest::bind(QKeyCombination keys)
{
    m_shortcuts->bind({ { toggle(), keys, QStringLiteral("Show or hide") } });
}

void KdeShortcutsTest::theKeysAreRegisteredAndTold()
{
    startService();
    bind();
    QCOMPARE(state(), State::asking);
    QTRY_COMPARE(state(), State::bound);
    QCOMPARE(m_shortcuts->status().keys, QStringLiteral("Meta+Ctrl+Alt+D"));
    const QStringList names{ QStringLiteral("org.nookle.Nookle"), toggle(), QStringLiteral("Nookle"),
                             QStringLiteral("Show or hide") };
    QCOMPARE(m_service->names, names);
    QCOMPARE(m_service->setSignature, QStringLiteral("asa(ai)u"));
    QCOMPARE(m_service->actions.value(toggle()).keys, controlAltSuperD);
    QCOMPARE(m_service->actions.value(toggle()).defaults, controlAltSuperD);
    QVERIFY(m_service->actions.value(toggle()).isActive);
    QVERIFY(m_service->unregistered.isEmpty());
}

void KdeShortcutsTest::theKeysThatTheUserHasChosenAreKept()
{
    startService();
    m_service->actions.insert(toggle(), { QKeyCombination(Qt::Key_F12), controlAltSuperD, false });
    bind();
    QTRY_COMPARE(state(), State::bound);
    QCOMPARE(m_shortcuts->status().keys, QStringLiteral("F12"));
    QVERIFY(m_service->actions.value(toggle()).isActive);
    QVERIFY(m_service->unregistered.isEmpty());
}

void KdeShortcutsTest::aPressReachesTheProgram()
{
    startService();
    bind();
    QTRY_COMPARE(state(), State::bound);
    m_service->press(QStringLiteral("org.nookle.Nookle"), toggle());
    QTRY_COMPARE(m_pressed, QStringList{ toggle() });
}

void KdeShortcutsTest::thePressOfAnotherProgramDoesNot()
{
    startService();
    bind();
    QTRY_COMPARE(state(), State::bound);
    m_service->press(QStringLiteral("kwin"), toggle());
    m_service->press(QStringLiteral("org.nookle.Nookle"), QStringLiteral("another"));
    settleAll();
    QVERIFY(m_pressed.isEmpty());
}

void KdeShortcutsTest::aChangeInTheSettingsIsTold()
{
    startService();
    bind();
    QTRY_COMPARE(state(), State::bound);
    m_service->changeKeys(toggle(), kdeKeys(QKeyCombination(Qt::CTRL, Qt::Key_F9)));
    QTRY_COMPARE(m_shortcuts->status().keys, QStringLiteral("Ctrl+F9"));
    m_service->changeKeys(toggle(), {});
    QTRY_COMPARE(state(), State::unbound);
    QCOMPARE(m_shortcuts->status().keys, QString());
    m_service->changeKeys(QStringLiteral("another"), kdeKeys(QKeyCombination(Qt::Key_F1)));
    settleAll();
    QCOMPARE(state(), State::unbound);
}

void KdeShortcutsTest::keysThatAnotherProgramHoldsAreTold()
{
    startService();
    m_service->isTakenByOther = true;
    bind();
    QTRY_COMPARE(state(), State::unbound);
    QVERIFY(m_shortcuts->status().obstacle.contains(QLatin1String("Meta+Ctrl+Alt+D")));
}

void KdeShortcutsTest::releasingKeepsTheChoiceOfTheUser()
{
    startService();
    bind();
    QTRY_COMPARE(state(), State::bound);
    m_shortcuts.reset();
    QTRY_COMPARE(m_service->calls.last(), QStringLiteral("setInactive"));
    QVERIFY(m_service->actions.contains(toggle()));
    QVERIFY(!m_service->actions.value(toggle()).isActive);
    QVERIFY(m_service->unregistered.isEmpty());
}

void KdeShortcutsTest::whatIsReleasedBeforeTheAnswerIsNotRegistered()
{
    startService();
    bind();
    m_shortcuts->release();
    settleAll();
    QVERIFY(m_service->calls.contains(QStringLiteral("defaultShortcutKeys")));
    QVERIFY(!m_service->calls.contains(QStringLiteral("setShortcutKeys")));
}

void KdeShortcutsTest::anotherShortcutReplacesTheFormerOne()
{
    startService();
    bind();
    QTRY_COMPARE(state(), State::bound);
    bind(QKeyCombination(Qt::CTRL, Qt::Key_D));
    QTRY_COMPARE(m_shortcuts->status().keys, QStringLiteral("Ctrl+D"));
    QCOMPARE(m_service->unregistered, QStringList{ QStringLiteral("org.nookle.Nookle/toggle") });
    QCOMPARE(m_service->actions.value(toggle()).keys, QKeyCombination(Qt::CTRL, Qt::Key_D));
}

void KdeShortcutsTest::aProgramThatWasRemovedIsForgotten()
{
    startService();
    makeShortcuts(QStringLiteral("/of/nobody"));
    bind();
    QTRY_COMPARE(state(), State::bound);
    m_shortcuts->release();
    QTRY_COMPARE(m_service->unregistered, QStringList{ QStringLiteral("org.nookle.Nookle/toggle") });
}

void KdeShortcutsTest::withoutTheServiceThereAreNoShortcuts()
{
    bind();
    QTRY_COMPARE(state(), State::absent);
}

void KdeShortcutsTest::aServiceThatStartsLaterIsUsed()
{
    bind();
    QTRY_COMPARE(state(), State::absent);
    startService();
    QTRY_COMPARE(state(), State::bound);
}

void KdeShortcutsTest::aServiceThatRestartsIsAskedAgain()
{
    startService();
    bind();
    QTRY_COMPARE(state(), State::bound);
    m_service.reset();
    QTRY_COMPARE(state(), State::absent);
    startService();
    QTRY_COMPARE(state(), State::bound);
    m_service->press(QStringLiteral("org.nookle.Nookle"), toggle());
    QTRY_COMPARE(m_pressed.size(), 1);
}

QTEST_GUILESS_MAIN(KdeShortcutsTest)
#include "KdeShortcutsTest.moc"
