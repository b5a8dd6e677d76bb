#include "BusClient.h"
#include "FileDescriptor.h"
#include "PrivateDesktop.h"
#include "Shelf.h"
#include "Waiting.h"
#include "WebServer.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QUrl>

#include <memory>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>

using namespace nookle;
using namespace nookle::e2e;

namespace {

inline constexpr int screenWidth = 1200;

[[nodiscard]] QString applicationInterface()
{
    return QStringLiteral("org.freedesktop.Application");
}

/// The command line of an entry's action, or of the entry itself.
[[nodiscard]] QString commandIn(const QString& desktopFile, const QByteArray& group)
{
    QFile file(desktopFile);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    bool isInGroup = false;
    for (QByteArray line = file.readLine(); !line.isEmpty(); line = file.readLine()) {
        if (line.startsWith('['))
            isInGroup = line.trimmed() == '[' + group + ']';
        else if (isInGroup && line.startsWith("Exec="))
            return QString::fromUtf8(line.mid(5).trimmed());
    }
    return {};
}

} // namespace

class ServicesEndToEndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aCallWithTwoFilesAddsBothAndShowsTheShelfForAMoment();
    void aCallWithATextAddsIt();
    void aCallWithNeitherTellsTheCallerAndTheUser();
    void aFileManagerOpensFilesWithTheShelf();
    void theDesktopsActionAddsWhatIsSelectedInAnotherProgram();
    void theDesktopsActionShowsAndHidesTheShelf();
    void theScriptForFileManagersAddsWhatIsSelected_data();
    void theScriptForFileManagersAddsWhatIsSelected();
    void theFirstStartTakesFiles();
    void aSecondStartTakesFilesOfAnyName();
    void filesAndPagesAreTakenTogether();
    void anArgumentThatIsNothingIsSaid();
    void aShelfThatAnotherSessionHoldsIsSaid();
    void aProgramThatLostItsShelfEnds();
    void theBusStartsTheInstalledProgram();
    void theInstalledProgramSpeaksTheUsersLanguage();
    void whereTextRunsFromTheRightThePanelStaysAtTheRight();
    void theActionGivesTheShelfTheFocusAndEscapeGivesItBack();
    void whatIsTypedAfterEscapeIsNotForTheShelfThatGoes();
    void theShortcutWithShiftGivesTheShelfTheFocusAtItsFirstShowing();
    void aPinnedShelfReservesItsSpaceWhileItIsShown();
    void theFirstStartByHandIntroducesTheShelf();
    void theFirstStartFromTheMenuIntroducesTheShelf();
    void aStartWithTheSessionShowsNothing();
    void aBusThatDiesAfterALinkWasLookedUpLeavesTheShelfWorking();

private:
    [[nodiscard]] QString uri(const QString& name) const
    {
        return QUrl::fromLocalFile(m_desktop->home(QStringLiteral("files/") + name)).toString(QUrl::FullyEncoded);
    }
    [[nodiscard]] bool shelfHas(const QStringList& names) const
    {
        return waitFor([&] { return m_shelf->savedFileNames() == names; });
    }
    /// Opens the window of another program, and waits until it has the focus; XCB_NONE when it gets none.
    [[nodiscard]] xcb_window_t openPeerWithFocus();
    [[nodiscard]] QString savedText() const;
    [[nodiscard]] QString savedTitle() const;
    /// Lets the programs that start from now on keep GNOME's settings as they do on a user's desktop.
    [[nodiscard]] bool useRealSettings();

    QTemporaryDir m_prefix;
    /// Makes the folder of the shelf, and holds it as a program of another session does.
    [[nodiscard]] FileDescriptor lockDataFolder() const;

    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<Shelf> m_shelf;
    std::unique_ptr<BusClient> m_client;
    std::unique_ptr<Program> m_peer;
};

void ServicesEndToEndTest::initTestCase()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_PROGRAM"), "run it with ctest, which says which program is tested");
    const QStringList install{ QStringLiteral("--install"), qEnvironmentVariable("NOOKLE_BUILD"),
                               QStringLiteral("--prefix"), m_prefix.path() };
    QProcess cmake;
    cmake.start(qEnvironmentVariable("NOOKLE_CMAKE"), install);
    QVERIFY(cmake.waitForFinished());
    QVERIFY2(cmake.exitCode() == 0, cmake.readAllStandardError().constData());
    // For the session bus of the desktops below.
    qputenv("XDG_DATA_DIRS",
            QByteArray(QFile::encodeName(m_prefix.filePath(QStringLiteral("share"))) + ':' + qgetenv("XDG_DATA_DIRS")));
    qputenv("PATH", QByteArray(QFile::encodeName(m_prefix.filePath(QStringLiteral("bin"))) + ':' + qgetenv("PATH")));
}

void ServicesEndToEndTest::init()
{
    m_desktop = PrivateDesktop::tryCreate({ QSize(screenWidth, 700), QStringLiteral("openbox"), false });
    QVERIFY(m_desktop);
    m_desktop->writeFile(QStringLiteral("files/a"), "words");
    m_desktop->writeFile(QStringLiteral("files/two words"), "words");
    m_client = BusClient::tryConnect(m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    QVERIFY(m_client);
    m_shelf = std::make_unique<Shelf>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
}

void ServicesEndToEndTest::cleanup()
{
    m_client.reset();
    m_peer.reset();
    m_shelf.reset();
    m_desktop.reset();
}

QString ServicesEndToEndTest::savedText() const
{
    const QList<QJsonObject> items = m_shelf->savedItems();
    if (items.isEmpty())
        return {};
    const QJsonObject content = items.first().value(QLatin1String("content")).toObject();
    return content.value(QLatin1String("text")).toObject().value(QLatin1String("_0")).toString();
}

QString ServicesEndToEndTest::savedTitle() const
{
    const QList<QJsonObject> items = m_shelf->savedItems();
    if (items.isEmpty())
        return {};
    const QJsonObject content = items.first().value(QLatin1String("content")).toObject();
    return content.value(QLatin1String("link")).toObject().value(QLatin1String("title")).toString();
}

bool ServicesEndToEndTest::useRealSettings()
{
    m_desktop->writeFile(QStringLiteral("schemas/proxy.gschema.xml"),
                         "<schemalist><schema id='org.gnome.system.proxy' path='/system/proxy/'>"
                         "<key name='mode' type='s'><default>'none'</default></key></schema></schemalist>");
    m_desktop->setVariable(QStringLiteral("GSETTINGS_SCHEMA_DIR"), m_desktop->home(QStringLiteral("schemas")));
    m_desktop->setVariable(QStringLiteral("GSETTINGS_BACKEND"), QStringLiteral("dconf"));
    m_desktop->setVariable(QStringLiteral("GIO_MODULE_DIR"), qEnvironmentVariable("NOOKLE_DCONF"));
    const auto compiler =
        m_desktop->start(QStringLiteral("glib-compile-schemas"), { m_desktop->home(QStringLiteral("schemas")) });
    return compiler->waitForExit() == 0;
}

void ServicesEndToEndTest::aCallWithTwoFilesAddsBothAndShowsTheShelfForAMoment()
{
    QVERIFY(m_shelf->start());
    const QStringList uris{ uri(QStringLiteral("two words")), uri(QStringLiteral("a")) };
    QCOMPARE(m_client->addToShelf(uris, QStringLiteral("not this")).type(), QDBusMessage::ReplyMessage);
    QVERIFY(shelfHas({ QStringLiteral("two words"), QStringLiteral("a") }));
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
    QVERIFY(holdsFor([this] { return m_shelf->isAtRest(screenWidth); }, 900));
    QVERIFY(waitFor([this] { return !m_shelf->panel(); }, 2500));
}

void ServicesEndToEndTest::aCallWithATextAddsIt()
{
    QVERIFY(m_shelf->start());
    QCOMPARE(m_client->addToShelf({}, QStringLiteral("some words\nin two lines")).type(), QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([this] { return savedText() == QLatin1String("some words\nin two lines"); }));
}

void ServicesEndToEndTest::aCallWithNeitherTellsTheCallerAndTheUser()
{
    QVERIFY(m_shelf->start());
    const QString text = QStringLiteral("Nothing found that can be added to the shelf.");
    const QDBusMessage reply = m_client->addToShelf({}, {});
    QCOMPARE(reply.type(), QDBusMessage::ErrorMessage);
    QCOMPARE(reply.errorMessage(), text);
    QVERIFY(waitFor([&] { return m_client->messages() == QStringList{ QString(QStringLiteral("Nookle: ") + text) }; }));
    QVERIFY(m_shelf->savedItems().isEmpty());
}

void ServicesEndToEndTest::aFileManagerOpensFilesWithTheShelf()
{
    QVERIFY(m_shelf->start());
    // As file managers do it: the entry says that the program is on the bus.
    const QString entry = m_prefix.filePath(QStringLiteral("share/applications/org.nookle.Nookle.desktop"));
    const auto opener = m_desktop->start(
        QStringLiteral("gio"), { QStringLiteral("launch"), entry, m_desktop->home(QStringLiteral("files/two words")) });
    QCOMPARE(opener->waitForExit(), 0);
    QVERIFY(shelfHas({ QStringLiteral("two words") }));
}

void ServicesEndToEndTest::theDesktopsActionAddsWhatIsSelectedInAnotherProgram()
{
    QVERIFY(m_shelf->start());
    XScreen& screen = m_desktop->screen();
    m_peer = m_desktop->start(qEnvironmentVariable("NOOKLE_PEER"), { QStringLiteral("text") });
    QVERIFY(waitFor([&] { return screen.window("Peer", 400).has_value(); }));
    const QRect window = screen.window("Peer", 400)->frame;
    const auto select = [&] {
        screen.moveTo(window.topLeft() + QPoint(4, 12));
        screen.press();
        screen.moveTo(window.topLeft() + QPoint(300, 12));
        screen.release();
        return screen.hasOwner("PRIMARY");
    };
    QVERIFY(waitFor(select));
    const QString entry = m_prefix.filePath(QStringLiteral("share/applications/org.nookle.Nookle.desktop"));
    const QStringList command = QProcess::splitCommand(commandIn(entry, "Desktop Action add-selection"));
    const auto action = m_desktop->start(command.first(), command.mid(1));
    QCOMPARE(action->waitForExit(), 0);
    QVERIFY(waitFor([this] { return savedText().startsWith(QLatin1String("Some words that a user")); }));
}

void ServicesEndToEndTest::theDesktopsActionShowsAndHidesTheShelf()
{
    QVERIFY(m_shelf->start());
    const QString entry = m_prefix.filePath(QStringLiteral("share/applications/org.nookle.Nookle.desktop"));
    const QStringList command = QProcess::splitCommand(commandIn(entry, "Desktop Action toggle"));
    QCOMPARE(m_desktop->start(command.first(), command.mid(1))->waitForExit(), 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
    QCOMPARE(m_desktop->start(command.first(), command.mid(1))->waitForExit(), 0);
    QVERIFY(waitFor([this] { return !m_shelf->panel(); }));
}

void ServicesEndToEndTest::theScriptForFileManagersAddsWhatIsSelected_data()
{
    QTest::addColumn<QString>("variable");
    QTest::newRow("GNOME") << QStringLiteral("NAUTILUS_SCRIPT_SELECTED_URIS");
    QTest::newRow("MATE") << QStringLiteral("CAJA_SCRIPT_SELECTED_URIS");
}

void ServicesEndToEndTest::theScriptForFileManagersAddsWhatIsSelected()
{
    QFETCH(const QString, variable);
    const QString name = QStringLiteral("it's $(touch x) * 50%");
    m_desktop->writeFile(QString(QStringLiteral("files/") + name), "words");
    QVERIFY(m_shelf->start());
    const QStringList uris{ uri(QStringLiteral("two words")), uri(name) };
    m_desktop->setVariable(variable, QString(uris.join(QLatin1Char('\n')) + QLatin1Char('\n')));
    const auto script = m_desktop->start(m_prefix.filePath(QStringLiteral("share/nookle/scripts/Add to Shelf")));
    QCOMPARE(script->waitForExit(), 0);
    QVERIFY(shelfHas({ QStringLiteral("two words"), name }));
}

void ServicesEndToEndTest::theFirstStartTakesFiles()
{
    QVERIFY(m_shelf->start({ m_desktop->home(QStringLiteral("files/two words")) }));
    QVERIFY(shelfHas({ QStringLiteral("two words") }));
}

void ServicesEndToEndTest::aSecondStartTakesFilesOfAnyName()
{
    QVERIFY(m_shelf->start());
    QCOMPARE(m_shelf->startAgain({ uri(QStringLiteral("two words")), m_desktop->home(QStringLiteral("files/a")) }), 0);
    QVERIFY(shelfHas({ QStringLiteral("two words"), QStringLiteral("a") }));
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
}

void ServicesEndToEndTest::filesAndPagesAreTakenTogether()
{
    const QString page = QStringLiteral("http://127.0.0.1:1/page");
    QVERIFY(m_shelf->start({ m_desktop->home(QStringLiteral("files/a")), page }));
    QVERIFY(shelfHas({ QStringLiteral("a") }));
    QCOMPARE(m_shelf->savedItems().size(), 2);
    QCOMPARE(m_shelf->startAgain({ page + QLatin1Char('2'), uri(QStringLiteral("two words")) }), 0);
    QVERIFY(shelfHas({ QStringLiteral("two words"), QStringLiteral("a") }));
    QCOMPARE(m_shelf->savedItems().size(), 4);
}

FileDescriptor ServicesEndToEndTest::lockDataFolder() const
{
    const QString path = m_desktop->home(QStringLiteral("data/Nookle"));
    const QByteArray file = QFile::encodeName(path) + "/.lock";
    constexpr mode_t forTheUserAlone = 0600;
    FileDescriptor lock(QDir().mkpath(path) ? ::open(file.constData(), O_RDWR | O_CREAT | O_CLOEXEC, forTheUserAlone)
                                            : -1);
    return lock.isOpen() && ::flock(lock.get(), LOCK_EX | LOCK_NB) == 0 ? std::move(lock) : FileDescriptor();
}

void ServicesEndToEndTest::anArgumentThatIsNothingIsSaid()
{
    const auto program = m_desktop->start(qEnvironmentVariable("NOOKLE_PROGRAM"), { QStringLiteral("--version") });
    QCOMPARE(program->waitForExit(), 1);
    QCOMPARE(program->log(), QByteArray("Nookle: neither a file nor an address: --version\n"));
}

void ServicesEndToEndTest::aShelfThatAnotherSessionHoldsIsSaid()
{
    const FileDescriptor lock = lockDataFolder();
    QVERIFY(lock.isOpen());
    const auto program = m_desktop->start(qEnvironmentVariable("NOOKLE_PROGRAM"), {});
    QCOMPARE(program->waitForExit(), 1);
    QCOMPARE(program->log(), QByteArray("Nookle: another program holds the shelf and does not answer\n"));
}

void ServicesEndToEndTest::aProgramThatLostItsShelfEnds()
{
    const auto program = m_desktop->start(qEnvironmentVariable("NOOKLE_PROGRAM"), {});
    QVERIFY(waitFor([&] { return program->log().contains("no system tray"); }));
    const FileDescriptor lock = lockDataFolder();
    QVERIFY(lock.isOpen());
    QCOMPARE(m_shelf->startAgain({ m_desktop->home(QStringLiteral("files/a")) }), 0);
    QCOMPARE(program->waitForExit(), 1);
    QCOMPARE(program->log().count("Nookle: saving is off: another program holds the shelf\n"), 1);
}

void ServicesEndToEndTest::theBusStartsTheInstalledProgram()
{
    QCOMPARE(m_client->addToShelf({ uri(QStringLiteral("a")) }, {}).type(), QDBusMessage::ReplyMessage);
    QVERIFY(shelfHas({ QStringLiteral("a") }));
    // The same program answers a second start, and ends with the desktop.
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
    QCOMPARE(m_client->call(applicationInterface(), QStringLiteral("Activate"), { QVariantMap() }).type(),
             QDBusMessage::ReplyMessage);
}

void ServicesEndToEndTest::theInstalledProgramSpeaksTheUsersLanguage()
{
    m_desktop->setVariable(QStringLiteral("LANGUAGE"), QStringLiteral("de"));
    m_shelf = std::make_unique<Shelf>(*m_desktop, m_prefix.filePath(QStringLiteral("bin/nookle")));
    QVERIFY(m_shelf->start());
    QCOMPARE(m_client->addToShelf({}, {}).errorMessage(),
             QStringLiteral("Nichts gefunden, was zur Ablage hinzugefügt werden kann."));
}

void ServicesEndToEndTest::whereTextRunsFromTheRightThePanelStaysAtTheRight()
{
    m_desktop->setVariable(QStringLiteral("LANGUAGE"), QStringLiteral("ar"));
    QVERIFY(m_shelf->start());
    QCOMPARE(m_client->addToShelf({ uri(QStringLiteral("a")) }, {}).type(), QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
}

xcb_window_t ServicesEndToEndTest::openPeerWithFocus()
{
    const XScreen& screen = m_desktop->screen();
    m_peer = m_desktop->start(qEnvironmentVariable("NOOKLE_PEER"), { QStringLiteral("text") });
    std::optional<XWindow> window;
    const auto hasFocus = [&] {
        window = screen.window("Peer", 400);
        return window && screen.focus() == window->id;
    };
    return waitFor(hasFocus) ? window->id : XCB_NONE;
}

void ServicesEndToEndTest::theActionGivesTheShelfTheFocusAndEscapeGivesItBack()
{
    QVERIFY(m_shelf->start());
    XScreen& screen = m_desktop->screen();
    const xcb_window_t peer = openPeerWithFocus();
    QVERIFY(peer != XCB_NONE);
    for (const char* text : { "first", "second" })
        QCOMPARE(m_client->addToShelf({}, QString::fromLatin1(text)).type(), QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
    QCOMPARE(screen.focus(), peer);
    const QVariantList focus{ QStringLiteral("focus"), QVariantList(), QVariantMap() };
    QCOMPARE(m_client->call(applicationInterface(), QStringLiteral("ActivateAction"), focus).type(),
             QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([&] { return m_shelf->panel() && screen.focus() == m_shelf->panel()->id; }));
    // Longer than it would stay without the focus.
    QVERIFY(holdsFor([this] { return m_shelf->panel().has_value(); }, 2000));
    constexpr xcb_keysym_t down = 0xff54;
    constexpr xcb_keysym_t remove = 0xffff;
    constexpr xcb_keysym_t escape = 0xff1b;
    for (const xcb_keysym_t each : { down, remove }) {
        screen.pressKey(each);
        screen.releaseKey(each);
    }
    QVERIFY(waitFor([this] { return m_shelf->savedItems().size() == 1; }));
    QCOMPARE(savedText(), QStringLiteral("first"));
    screen.pressKey(XScreen::control);
    screen.pressKey('z');
    screen.releaseKey('z');
    screen.releaseKey(XScreen::control);
    QVERIFY(waitFor([this] { return savedText() == QLatin1String("second"); }));
    screen.pressKey(escape);
    screen.releaseKey(escape);
    QVERIFY(waitFor([&] { return !m_shelf->panel() && screen.focus() == peer; }));
}

void ServicesEndToEndTest::whatIsTypedAfterEscapeIsNotForTheShelfThatGoes()
{
    QVERIFY(m_shelf->start());
    XScreen& screen = m_desktop->screen();
    QCOMPARE(m_client->addToShelf({}, QStringLiteral("words")).type(), QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([this] { return m_shelf->savedItems().size() == 1; }));
    const QVariantList focus{ QStringLiteral("focus"), QVariantList(), QVariantMap() };
    QCOMPARE(m_client->call(applicationInterface(), QStringLiteral("ActivateAction"), focus).type(),
             QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([&] { return m_shelf->panel() && screen.focus() == m_shelf->panel()->id; }));
    constexpr xcb_keysym_t down = 0xff54;
    constexpr xcb_keysym_t remove = 0xffff;
    constexpr xcb_keysym_t escape = 0xff1b;
    for (const xcb_keysym_t each : { down, escape, remove }) {
        screen.pressKey(each);
        screen.releaseKey(each);
    }
    QVERIFY(waitFor([this] { return !m_shelf->panel(); }));
    QVERIFY(holdsFor([this] { return m_shelf->savedItems().size() == 1; }, 1000));
}

void ServicesEndToEndTest::theShortcutWithShiftGivesTheShelfTheFocusAtItsFirstShowing()
{
    QVERIFY(m_shelf->start());
    XScreen& screen = m_desktop->screen();
    const xcb_window_t peer = openPeerWithFocus();
    QVERIFY(peer != XCB_NONE);
    constexpr xcb_keysym_t shift = 0xffe1;
    constexpr xcb_keysym_t escape = 0xff1b;
    const QList<xcb_keysym_t> keys{ XScreen::control, XScreen::alt, XScreen::super, shift, 'd' };
    for (const xcb_keysym_t each : keys)
        screen.pressKey(each);
    for (const xcb_keysym_t each : keys)
        screen.releaseKey(each);
    QVERIFY(waitFor([&] { return m_shelf->panel() && screen.focus() == m_shelf->panel()->id; }));
    screen.pressKey(escape);
    screen.releaseKey(escape);
    QVERIFY(waitFor([&] { return !m_shelf->panel() && screen.focus() == peer; }));
}

void ServicesEndToEndTest::aPinnedShelfReservesItsSpaceWhileItIsShown()
{
    constexpr std::uint32_t panelWidth = 112;
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"),
                         "[General]\npanelPinned=true\nreserveSpace=true\n");
    QVERIFY(m_shelf->start());
    // The window manager's area for maximised windows: its place and then its size.
    const auto width = [this] {
        const auto numbers = m_desktop->screen().rootNumbers("_NET_WORKAREA");
        return numbers.size() < 4 ? 0 : numbers[2];
    };
    QVERIFY(waitFor([&] { return width() == screenWidth - panelWidth; }));
    const QVariantList toggle{ QStringLiteral("toggle"), QVariantList(), QVariantMap() };
    const auto call = [&] { return m_client->call(applicationInterface(), QStringLiteral("ActivateAction"), toggle); };
    QCOMPARE(call().type(), QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([&] { return width() == screenWidth; }));
    QVERIFY(waitFor([this] { return !m_shelf->panel(); }));
    QCOMPARE(call().type(), QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([&] { return width() == screenWidth - panelWidth; }));
    // It stays where it was.
    QVERIFY(m_shelf->isAtRest(screenWidth));
}

void ServicesEndToEndTest::theFirstStartByHandIntroducesTheShelf()
{
    m_desktop->setVariable(QStringLiteral("NOOKLE_START"), QString());
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
    m_desktop->screen().moveTo(m_shelf->panel()->frame.center());
    QVERIFY(holdsFor([this] { return m_shelf->isAtRest(screenWidth); }, 900));
    m_desktop->screen().moveTo({ 100, 100 });
    QVERIFY(waitFor([this] { return !m_shelf->panel(); }));
    QVERIFY(m_shelf->stop());
    QVERIFY(m_shelf->start());
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
}

void ServicesEndToEndTest::theFirstStartFromTheMenuIntroducesTheShelf()
{
    constexpr int introductionTime = 10000;
    QCOMPARE(m_client->call(applicationInterface(), QStringLiteral("Activate"), { QVariantMap() }).type(),
             QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
    QVERIFY(waitFor([this] { return !m_shelf->panel(); }, introductionTime + 5000));
    QFile settings(m_desktop->home(QStringLiteral("config/Nookle/Nookle.conf")));
    QVERIFY(settings.open(QIODevice::ReadOnly));
    QVERIFY(settings.readAll().contains("introduced=true"));
}

void ServicesEndToEndTest::aStartWithTheSessionShowsNothing()
{
    m_desktop->setVariable(QStringLiteral("NOOKLE_START"), QStringLiteral("login"));
    QVERIFY(m_shelf->start());
    QVERIFY(holdsFor([this] { return !m_shelf->panel(); }, 900));
}

void ServicesEndToEndTest::aBusThatDiesAfterALinkWasLookedUpLeavesTheShelfWorking()
{
    WebServer server;
    QVERIFY(server.isRunning());
    server.serve(QStringLiteral("/page"), "text/html", "<title>A page</title>");
    QVERIFY(useRealSettings());
    QVERIFY(m_shelf->start());
    QCOMPARE(m_client->addToShelf({}, server.url(QStringLiteral("/page"))).type(), QDBusMessage::ReplyMessage);
    QVERIFY(waitFor([this] { return savedTitle() == QLatin1String("A page"); }));
    QVERIFY(waitFor([this] { return !m_shelf->panel(); }));
    m_desktop->stopBus();
    QVERIFY(holdsFor([this] { return m_shelf->isRunning(); }, 1000));
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
}

QTEST_GUILESS_MAIN(ServicesEndToEndTest)
#include "ServicesEndToEndTest.moc"
