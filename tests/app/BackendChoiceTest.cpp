#include "BackendChoice.h"

#include <QTest>

using namespace nookle;

namespace {

/// A session as a test describes it.
struct Session {
    bool isWayland = false;
    bool hasBackend = true;
    bool hasLayerShell = true;
    bool hasX = true;
    bool hasCompositor = true;
    QString wanted{};
    bool isGnome = false;
};

} // namespace

class BackendChoiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSessionDecides_data();
    void theSessionDecides();
    void theChoiceIsExplained();
    void aSessionWithoutADisplayIsAFailure();
    void aCompositorThatIsGoneIsAFailure();
    void theUsersChoiceOverrides_data();
    void theUsersChoiceOverrides();
    void anImpossibleWishIsAFailure_data();
    void anImpossibleWishIsAFailure();
    void noXServerIsLookedForWhereWaylandIsUsed();
    void theToolkitConnectsToTheSameDisplay();
    void newsOfDragsComeFromSomeCompositors_data();
    void newsOfDragsComeFromSomeCompositors();

private:
    [[nodiscard]] std::variant<BackendChoice, Failure> choose(const Session& session);
    [[nodiscard]] DesktopKind kindOf(const Session& session);

    int m_looksForX = 0;
    int m_looksForLayerShell = 0;
};

std::variant<BackendChoice, Failure> BackendChoiceTest::choose(const Session& session)
{
    m_looksForX = 0;
    m_looksForLayerShell = 0;
    return chooseBackend({ .wanted = session.wanted,
                           .isWaylandSession = session.isWayland,
                           .isGnome = session.isGnome,
                           .waylandDisplay = QStringLiteral("wayland-7"),
                           .xDisplay = QStringLiteral(":7"),
                           .hasWaylandBackend = session.hasBackend,
                           .hasCompositor = [session] { return session.hasCompositor; },
                           .hasLayerShell =
                               [this, session] {
                                   ++m_looksForLayerShell;
                                   return session.hasLayerShell;
                               },
                           .hasXServer =
                               [this, session] {
                                   ++m_looksForX;
                                   return session.hasX;
                               } });
}

DesktopKind BackendChoiceTest::kindOf(const Session& session)
{
    const auto choice = choose(session);
    if (const auto* failure = std::get_if<Failure>(&choice)) {
        qWarning("%s", qPrintable(failure->description));
        return DesktopKind::none;
    }
    return std::get<BackendChoice>(choice).kind;
}

void BackendChoiceTest::theSessionDecides_data()
{
    QTest::addColumn<bool>("isWayland");
    QTest::addColumn<bool>("hasBackend");
    QTest::addColumn<bool>("hasLayerShell");
    QTest::addColumn<bool>("hasX");
    QTest::addColumn<DesktopKind>("expected");
    QTest::newRow("an X session") << false << true << true << true << DesktopKind::x11;
    QTest::newRow("a layer shell") << true << true << true << true << DesktopKind::wayland;
    QTest::newRow("a layer shell without X") << true << true << true << false << DesktopKind::wayland;
    QTest::newRow("no layer shell") << true << true << false << true << DesktopKind::xwayland;
    QTest::newRow("a build without the backend") << true << false << true << true << DesktopKind::xwayland;
    QTest::newRow("neither layer shell nor X") << true << true << false << false << DesktopKind::none;
}

void BackendChoiceTest::theSessionDecides()
{
    QFETCH(bool, isWayland);
    QFETCH(bool, hasBackend);
    QFETCH(bool, hasLayerShell);
    QFETCH(bool, hasX);
    QFETCH(DesktopKind, expected);
    QCOMPARE(kindOf({ isWayland, hasBackend, hasLayerShell, hasX }), expected);
    QVERIFY2(m_looksForX <= 1 && m_looksForLayerShell <= 1, "it connects to a server more often than it must");
}

void BackendChoiceTest::theChoiceIsExplained()
{
    const auto description = [&](const Session& session) {
        return std::get<BackendChoice>(choose(session)).description;
    };
    QCOMPARE(description({ .isWayland = false }), QStringLiteral("the display: X11"));
    QCOMPARE(description({ .isWayland = true }), QStringLiteral("the display: Wayland"));
    QCOMPARE(
        description({ .isWayland = true, .hasLayerShell = false }),
        QStringLiteral("the display: X11 through XWayland (the compositor offers no layer shell; drags may not reach "
                       "the shelf or leave it)"));
    QCOMPARE(description({ .isWayland = true, .hasLayerShell = false, .isGnome = true }),
             QStringLiteral("the display: X11 through XWayland (the compositor offers no layer shell)"));
    QCOMPARE(description({ .isWayland = true, .hasBackend = false }),
             QStringLiteral("the display: X11 through XWayland (this build has no Wayland backend, as those for Debian "
                            "13 and later have; drags may not reach the shelf or leave it)"));
    QCOMPARE(description({ .isWayland = true, .hasBackend = false, .isGnome = true }),
             QStringLiteral("the display: X11 through XWayland (this build has no Wayland backend)"));
    QCOMPARE(
        description({ .isWayland = true, .hasBackend = false, .hasX = false }),
        QStringLiteral("the display: Wayland, on which no panel can be shown (this build has no Wayland backend)"));
}

void BackendChoiceTest::aSessionWithoutADisplayIsAFailure()
{
    const auto choice = choose({ .isWayland = false, .hasX = false });
    QVERIFY(std::holds_alternative<Failure>(choice));
    QCOMPARE(std::get<Failure>(choice).description, QStringLiteral("no X11 display can be opened (DISPLAY is \":7\")"));
}

void BackendChoiceTest::aCompositorThatIsGoneIsAFailure()
{
    const auto choice = choose({ .isWayland = true, .hasLayerShell = false, .hasX = false, .hasCompositor = false });
    QVERIFY(std::holds_alternative<Failure>(choice));
}

void BackendChoiceTest::theUsersChoiceOverrides_data()
{
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<DesktopKind>("expected");
    QTest::newRow("x11") << QStringLiteral("x11") << DesktopKind::xwayland;
    QTest::newRow("xwayland") << QStringLiteral("xwayland") << DesktopKind::xwayland;
    QTest::newRow("wayland") << QStringLiteral("wayland") << DesktopKind::wayland;
}

void BackendChoiceTest::theUsersChoiceOverrides()
{
    QFETCH(QString, wanted);
    QFETCH(DesktopKind, expected);
    QCOMPARE(kindOf({ .isWayland = true, .wanted = wanted }), expected);
}

void BackendChoiceTest::anImpossibleWishIsAFailure_data()
{
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<bool>("isWayland");
    QTest::newRow("unknown") << QStringLiteral("quartz") << true;
    QTest::newRow("wayland in an X session") << QStringLiteral("wayland") << false;
    QTest::newRow("xwayland in an X session") << QStringLiteral("xwayland") << false;
    QTest::newRow("x11 without a server") << QStringLiteral("x11") << true;
}

void BackendChoiceTest::anImpossibleWishIsAFailure()
{
    QFETCH(QString, wanted);
    QFETCH(bool, isWayland);
    QVERIFY(std::holds_alternative<Failure>(choose({ .isWayland = isWayland, .hasX = false, .wanted = wanted })));
}

void BackendChoiceTest::noXServerIsLookedForWhereWaylandIsUsed()
{
    QCOMPARE(kindOf({ .isWayland = true }), DesktopKind::wayland);
    QCOMPARE(m_looksForX, 0);
}

void BackendChoiceTest::theToolkitConnectsToTheSameDisplay()
{
    const auto platform = [&](const Session& session) {
        return std::get<BackendChoice>(choose(session)).toolkitPlatform();
    };
    QCOMPARE(platform({ .isWayland = false }), QByteArray("xcb"));
    QCOMPARE(platform({ .isWayland = true, .hasLayerShell = false }), QByteArray("xcb"));
    QCOMPARE(platform({ .isWayland = true }), QByteArray("wayland"));
    QCOMPARE(platform({ .isWayland = true, .hasLayerShell = false, .hasX = false }), QByteArray("wayland"));
}

void BackendChoiceTest::newsOfDragsComeFromSomeCompositors_data()
{
    QTest::addColumn<QString>("desktop");
    QTest::addColumn<QByteArrayList>("interfaces");
    QTest::addColumn<bool>("tells");
    const QByteArrayList anyone{ "wl_seat", "zwlr_layer_shell_v1", "org_kde_kwin_server_decoration_manager" };
    const QByteArrayList kwin = anyone + QByteArrayList{ "kde_screen_edge_manager_v1" };
    QTest::newRow("Plasma") << QStringLiteral("KDE") << kwin << true;
    QTest::newRow("KWin under another name") << QStringLiteral("mine") << kwin << true;
    QTest::newRow("KWin without a name") << QString() << kwin << true;
    QTest::newRow("a KWin without the interface") << QStringLiteral("KDE") << anyone << true;
    QTest::newRow("labwc") << QStringLiteral("labwc") << anyone << true;
    QTest::newRow("sway") << QStringLiteral("sway") << anyone << false;
    QTest::newRow("nothing known") << QString() << QByteArrayList() << false;
}

void BackendChoiceTest::newsOfDragsComeFromSomeCompositors()
{
    QFETCH(const QString, desktop);
    QFETCH(const QByteArrayList, interfaces);
    QTEST(tellsOfDrags({ desktop }, interfaces), "tells");
}

QTEST_GUILESS_MAIN(BackendChoiceTest)
#include "BackendChoiceTest.moc"
