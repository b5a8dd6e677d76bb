#include "AssistiveClient.h"
#include "FakeShortcutPortal.h"
#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QtTest>

#include <optional>

using namespace nookle::e2e;

/// The real program and a portal that gives shortcuts to programs, as GNOME's does.
class GnomeShortcutTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theProgramNamesItselfAndThePressesReachIt();
    void aMissingDesktopEntryIsSaidInTheLogAndInTheSettings();
    void aNoIsRememberedUntilTheUserWantsToBeAskedAgain();

private:
    using Node = AssistiveClient::Node;

    [[nodiscard]] QString address() const
    {
        return m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    }
    [[nodiscard]] bool openSettings();
    /// The thing with that text in the windows of the program.
    [[nodiscard]] std::optional<Node> shown(const QString& text) const;
    [[nodiscard]] std::optional<Node> shownBelow(const Node& node, const QString& text) const;
    [[nodiscard]] bool isAsked() const { return m_portal->calls.contains(QStringLiteral("BindShortcuts")); }
    [[nodiscard]] bool isDeclined() const
    {
        return content("config/Nookle/Nookle.conf").contains("shortcutDeclined=true");
    }

    std::unique_ptr<AssistiveClient> m_assistive;
    std::unique_ptr<nookle::FakeShortcutPortal> m_portal;
};

void GnomeShortcutTest::init()
{
    QVERIFY(setUpDesktop(WaylandDesktop::Compositor::gnome));
    m_assistive = AssistiveClient::tryCreate(address());
    QVERIFY(m_assistive);
    m_portal = std::make_unique<nookle::FakeShortcutPortal>(address().toLatin1());
    const auto bound = nookle::FakeShortcutPortal::bound(QStringLiteral("shortcut-1"), QStringLiteral("Ctrl+Alt+D"));
    m_portal->bindResults = { { QStringLiteral("shortcuts"), QVariant::fromValue(bound) } };
    QVERIFY(m_portal->start());
}

void GnomeShortcutTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("gnome-shortcut-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    m_portal.reset();
    m_assistive.reset();
    tearDownDesktop();
}

bool GnomeShortcutTest::openSettings()
{
    if (!showShelf())
        return false;
    // Beside the tiles. The entry for the settings is the last but one.
    hand().moveTo(firstTile() + QPoint(0, 40));
    hand().click(Hand::Button::right);
    if (!waitFor([this] { return isMenuOpen(); }))
        return false;
    for (const Hand::Key key : { Hand::Key::up, Hand::Key::up, Hand::Key::enter })
        hand().type(key);
    return waitFor([this] { return shown(QStringLiteral("Show and hide")).has_value(); });
}

std::optional<AssistiveClient::Node> GnomeShortcutTest::shownBelow(const Node& node, const QString& text) const
{
    if (m_assistive->name(node).contains(text))
        return node;
    for (const Node& child : m_assistive->children(node)) {
        if (const auto found = shownBelow(child, text))
            return found;
    }
    return std::nullopt;
}

std::optional<AssistiveClient::Node> GnomeShortcutTest::shown(const QString& text) const
{
    for (const Node& program : m_assistive->programs()) {
        if (m_assistive->name(program) != QLatin1String("nookle"))
            continue;
        if (const auto found = shownBelow(program, text))
            return found;
    }
    return std::nullopt;
}

void GnomeShortcutTest::theProgramNamesItselfAndThePressesReachIt()
{
    QVERIFY(startShelf());
    QVERIFY(waitFor([this] { return isAsked(); }));
    // Other parts of the program and of the desktop ask the portal, too.
    QVERIFY(m_portal->calls.indexOf(QStringLiteral("Register"))
            < m_portal->calls.indexOf(QStringLiteral("CreateSession")));
    QCOMPARE(m_portal->programs, QStringList{ QStringLiteral("org.nookle.Nookle") });
    m_portal->press(m_portal->session, QStringLiteral("shortcut-1"));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    m_portal->press(m_portal->session, QStringLiteral("shortcut-1"));
    QVERIFY(waitFor([this] { return isPanelGone(); }));
}

void GnomeShortcutTest::aMissingDesktopEntryIsSaidInTheLogAndInTheSettings()
{
    m_portal->registryRefusal = QStringLiteral("App info not found for 'org.nookle.Nookle'");
    QVERIFY(startShelf());
    const QByteArray line = "the desktop does not accept the program as org.nookle.Nookle: App info not found";
    QVERIFY(waitFor([&] { return m_shelf->log().contains(line); }));
    QVERIFY(openSettings());
    QVERIFY(
        waitFor([this] { return shown(QStringLiteral("It does not find org.nookle.Nookle.desktop.")).has_value(); }));
    keepPicture(QStringLiteral("gnome-shortcut-not-installed.png"));
    QCOMPARE(m_shelf->log().count(line), 1);
    QVERIFY(!isAsked());
}

void GnomeShortcutTest::aNoIsRememberedUntilTheUserWantsToBeAskedAgain()
{
    m_portal->bindResponse = 1;
    QVERIFY(startShelf());
    QVERIFY(waitFor([this] { return isAsked() && isDeclined(); }));
    QVERIFY(m_shelf->stop());

    m_portal->calls.clear();
    m_portal->bindResponse = 0;
    QVERIFY(startShelf());
    QVERIFY(openSettings());
    QVERIFY(waitFor([this] { return shown(QStringLiteral("You have declined the shortcut.")).has_value(); }));
    keepPicture(QStringLiteral("gnome-shortcut-declined.png"));
    QVERIFY2(!isAsked(), "the user is asked again at the next start");

    const auto ask = shown(QStringLiteral("Ask Again"));
    QVERIFY(ask);
    m_assistive->doAction(*ask, 0);
    QVERIFY(waitFor([this] { return isAsked() && !isDeclined(); }));
    QVERIFY(waitFor([this] { return shown(QStringLiteral("Ctrl+Alt+D")).has_value(); }));
    keepPicture(QStringLiteral("gnome-shortcut-bound.png"));
}

QTEST_GUILESS_MAIN(GnomeShortcutTest)
#include "GnomeShortcutTest.moc"
