#include "BusService.h"

#include "CapturedLog.h"
#include "DesktopNotifier.h"
#include "PrivateBus.h"
#include "ProgramVersion.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>
#include <QTest>

#include <memory>

using namespace nookle;

/// What shows messages on a desktop.
class FakeNotifications : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")

public:
    Q_SLOT uint Notify(const QString& program, uint /*replaces*/, const QString& /*icon*/, const QString& /*summary*/,
                       const QString& body, const QStringList& /*actions*/, const QVariantMap& /*hints*/, int /*time*/)
    {
        shown.append(program + QStringLiteral(": ") + body);
        return 1;
    }

    QStringList shown;
};

class BusServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void filesAndTextsAreHandedOver();
    void theErrorsTextReachesTheCaller();
    void theVersionCanBeRead();
    void aDesktopOpensFilesAndPages();
    void aDesktopActivatesTheProgram();
    void theActionAddsTheSelection();
    void theActionShowsAndHides();
    void theActionTakesTheFocus();
    void anotherActionDoesNothing();
    void aNameThatIsTakenIsSaidInOneLogLine();
    void aMessageIsShownByTheDesktopWithoutItsMarkup();
    void aMessageIsShortAndHasNoControlCharacters();
    void aMessageThatNothingShowsGoesToTheLog();

private:
    /// The reply to a call of the program's object by another program.
    [[nodiscard]] QDBusMessage call(const QString& interface, const QString& method, const QVariantList& arguments);

    /// What a desktop shows of a message.
    [[nodiscard]] static QStringList shownWhenNotified(const QString& message);

    PrivateBus m_bus;
    std::unique_ptr<BusService> m_service;
    QList<ServicePasteboard> m_added;
    QStringList m_opened;
    QString m_refusal;
    int m_activations = 0;
    int m_selections = 0;
    int m_toggles = 0;
    int m_focuses = 0;
};

namespace {

const QString otherProgram = QStringLiteral("other");

[[nodiscard]] QString shelfInterface()
{
    return QStringLiteral("org.nookle.Nookle1");
}

[[nodiscard]] QString applicationInterface()
{
    return QStringLiteral("org.freedesktop.Application");
}

} // namespace

void BusServiceTest::initTestCase()
{
    QVERIFY(!m_bus.address().isEmpty());
    qputenv("DBUS_SESSION_BUS_ADDRESS", m_bus.address());
    QVERIFY(QDBusConnection::connectToBus(QString::fromLatin1(m_bus.address()), otherProgram).isConnected());
}

void BusServiceTest::init()
{
    m_added.clear();
    m_opened.clear();
    m_refusal.clear();
    m_activations = 0;
    m_selections = 0;
    m_toggles = 0;
    m_focuses = 0;
    m_service = std::make_unique<BusService>();
    m_service->onAdd = [this](const ServicePasteboard& pasteboard) -> std::optional<Failure> {
        m_added.append(pasteboard);
        return m_refusal.isEmpty() ? std::nullopt : std::optional(Failure{ m_refusal });
    };
    m_service->onOpen = [this](const QStringList& uris) { m_opened += uris; };
    m_service->onActivate = [this] { ++m_activations; };
    m_service->onFocus = [this] { ++m_focuses; };
    m_service->onAddSelection = [this] { ++m_selections; };
    m_service->onToggle = [this] { ++m_toggles; };
    m_service->start();
}

void BusServiceTest::cleanup()
{
    m_service.reset();
    QDBusConnection::sessionBus().unregisterService(QStringLiteral("org.nookle.Nookle"));
}

QDBusMessage BusServiceTest::call(const QString& interface, const QString& method, const QVariantList& arguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(QStringLiteral("org.nookle.Nookle"),
                                                          QStringLiteral("/org/nookle/Nookle"), interface, method);
    message.setArguments(arguments);
    const QDBusPendingCall pending = QDBusConnection(otherProgram).asyncCall(message);
    [&] { QTRY_VERIFY(pending.isFinished()); }();
    return pending.reply();
}

void BusServiceTest::filesAndTextsAreHandedOver()
{
    const QStringList uris{ QStringLiteral("file:///a"), QStringLiteral("file:///b") };
    const QDBusMessage reply = call(shelfInterface(), QStringLiteral("AddToShelf"), { uris, QStringLiteral("words") });
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    QCOMPARE(m_added.size(), 1);
    QCOMPARE(m_added.first().fileUrls.size(), 2);
    QCOMPARE(m_added.first().strings, QStringList{ QStringLiteral("words") });
}

void BusServiceTest::theErrorsTextReachesTheCaller()
{
    m_refusal = QStringLiteral("Nothing there.");
    const QDBusMessage reply = call(shelfInterface(), QStringLiteral("AddToShelf"), { QStringList(), QString() });
    QCOMPARE(reply.type(), QDBusMessage::ErrorMessage);
    QCOMPARE(reply.errorName(), QStringLiteral("org.nookle.Nookle1.Error.NothingToAdd"));
    QCOMPARE(reply.errorMessage(), m_refusal);
    QVERIFY(m_added.first().strings.isEmpty());
}

void BusServiceTest::theVersionCanBeRead()
{
    const QVariantList property{ shelfInterface(), QStringLiteral("Version") };
    const QDBusMessage reply = call(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"), property);
    QCOMPARE(reply.arguments().value(0).value<QDBusVariant>().variant().toString(), programVersion());
}

void BusServiceTest::aDesktopOpensFilesAndPages()
{
    const QStringList uris{ QStringLiteral("file:///a"), QStringLiteral("https://example.com/") };
    const QDBusMessage reply = call(applicationInterface(), QStringLiteral("Open"), { uris, QVariantMap() });
    QCOMPARE(reply.type(), QDBusMessage::ReplyMessage);
    QCOMPARE(m_opened, uris);
}

void BusServiceTest::aDesktopActivatesTheProgram()
{
    QCOMPARE(call(applicationInterface(), QStringLiteral("Activate"), { QVariantMap() }).type(),
             QDBusMessage::ReplyMessage);
    QCOMPARE(m_activations, 1);
}

void BusServiceTest::theActionAddsTheSelection()
{
    const QVariantList arguments{ QStringLiteral("add-selection"), QVariantList(), QVariantMap() };
    QCOMPARE(call(applicationInterface(), QStringLiteral("ActivateAction"), arguments).type(),
             QDBusMessage::ReplyMessage);
    QCOMPARE(m_selections, 1);
}

void BusServiceTest::theActionShowsAndHides()
{
    const QVariantList arguments{ QStringLiteral("toggle"), QVariantList(), QVariantMap() };
    QCOMPARE(call(applicationInterface(), QStringLiteral("ActivateAction"), arguments).type(),
             QDBusMessage::ReplyMessage);
    QCOMPARE(m_toggles, 1);
    QCOMPARE(m_selections, 0);
}

void BusServiceTest::theActionTakesTheFocus()
{
    const QVariantList arguments{ QStringLiteral("focus"), QVariantList(), QVariantMap() };
    QCOMPARE(call(applicationInterface(), QStringLiteral("ActivateAction"), arguments).type(),
             QDBusMessage::ReplyMessage);
    QCOMPARE(m_focuses, 1);
}

void BusServiceTest::anotherActionDoesNothing()
{
    const QVariantList arguments{ QStringLiteral("quit"), QVariantList(), QVariantMap() };
    (void)call(applicationInterface(), QStringLiteral("ActivateAction"), arguments);
    QCOMPARE(m_selections + m_toggles + m_focuses + m_activations + static_cast<int>(m_added.size()), 0);
}

void BusServiceTest::aNameThatIsTakenIsSaidInOneLogLine()
{
    cleanup();
    QVERIFY(QDBusConnection(otherProgram).registerService(QStringLiteral("org.nookle.Nookle")));
    const CapturedLog log;
    BusService late;
    late.start();
    QVERIFY(QDBusConnection(otherProgram).unregisterService(QStringLiteral("org.nookle.Nookle")));
    QCOMPARE(log.lines().size(), 1);
}

QStringList BusServiceTest::shownWhenNotified(const QString& message)
{
    FakeNotifications notifications;
    QDBusConnection other(otherProgram);
    if (!other.registerObject(QStringLiteral("/org/freedesktop/Notifications"), &notifications,
                              QDBusConnection::ExportAllSlots)
        || !other.registerService(QStringLiteral("org.freedesktop.Notifications")))
        return {};
    DesktopNotifier().notify(message);
    const bool isShown = QTest::qWaitFor([&] { return !notifications.shown.isEmpty(); });
    const bool isReset = other.unregisterService(QStringLiteral("org.freedesktop.Notifications"));
    return isShown && isReset ? notifications.shown : QStringList();
}

void BusServiceTest::aMessageIsShownByTheDesktopWithoutItsMarkup()
{
    QCOMPARE(shownWhenNotified(QStringLiteral("Not <b>that</b>")),
             QStringList{ QStringLiteral("Nookle: Not &lt;b&gt;that&lt;/b&gt;") });
}

void BusServiceTest::aMessageIsShortAndHasNoControlCharacters()
{
    QCOMPARE(shownWhenNotified(QStringLiteral("one\ntwo\u202e")), QStringList{ QStringLiteral("Nookle: one two") });
    const QStringList shown = shownWhenNotified(QString(1000, QLatin1Char('a')));
    QCOMPARE(shown.value(0).size(), QStringLiteral("Nookle: ").size() + 300);
}

void BusServiceTest::aMessageThatNothingShowsGoesToTheLog()
{
    const CapturedLog log;
    DesktopNotifier().notify(QStringLiteral("Not that"));
    QTRY_COMPARE(log.lines(), QStringList{ QStringLiteral("Nookle: could not show a message: Not that") });
}

QTEST_MAIN(BusServiceTest)
#include "BusServiceTest.moc"
