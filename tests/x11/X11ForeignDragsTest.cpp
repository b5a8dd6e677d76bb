#include "X11ForeignDrags.h"

#include "PrivateDesktop.h"
#include "Waiting.h"

#include <QTest>

#include <chrono>
#include <csignal>
#include <memory>

#include <sys/prctl.h>
#include <sys/socket.h>

using namespace nookle;
using namespace nookle::e2e;
using namespace std::chrono_literals;

class X11ForeignDragsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aDragOfAnX11ProgramIsSeenUntilItEnds();
    void theEndOfTheServerEndsItsDrags();
    void theNextServerIsWatched();
    void aServerThatEndsIsLeftAlone();

private:
    void startServer();
    /// Ends the server before the program whose drag is under way.
    static void killServer();
    [[nodiscard]] bool beginDrag()
    {
        m_desktop->screen().claim("XdndSelection");
        return waitFor([this] { return m_drags->isUnderWay(); });
    }

    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<X11ForeignDrags> m_drags;
    int m_changes = 0;
};

void X11ForeignDragsTest::initTestCase()
{
    // A process of that name has to run before the X server is connected to.
    QCOMPARE(::prctl(PR_SET_NAME, "Xwayland"), 0);
}

void X11ForeignDragsTest::startServer()
{
    m_desktop = PrivateDesktop::tryCreate({ QSize(300, 200), QStringLiteral("openbox"), false });
    QVERIFY(m_desktop);
    qputenv("DISPLAY", m_desktop->display());
}

void X11ForeignDragsTest::killServer()
{
    const e2e::XcbConnection connection(xcb_connect(nullptr, nullptr));
    ucred server{};
    socklen_t size = sizeof server;
    const int socket = xcb_get_file_descriptor(connection.get());
    QCOMPARE(::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &server, &size), 0);
    QCOMPARE(::kill(server.pid, SIGKILL), 0);
}

void X11ForeignDragsTest::init()
{
    startServer();
    m_drags = std::make_unique<X11ForeignDrags>(0ms);
    m_changes = 0;
    m_drags->onChanged = [this] { ++m_changes; };
    QVERIFY(m_drags->watch());
}

void X11ForeignDragsTest::cleanup()
{
    m_drags.reset();
    m_desktop.reset();
}

void X11ForeignDragsTest::aDragOfAnX11ProgramIsSeenUntilItEnds()
{
    QVERIFY(!m_drags->isUnderWay());
    QVERIFY(beginDrag());
    QVERIFY(m_drags->isOfX11Program());
    QCOMPARE(m_changes, 1);
    m_desktop->screen().disown("XdndSelection");
    QVERIFY(waitFor([this] { return !m_drags->isUnderWay(); }));
    QCOMPARE(m_changes, 2);
}

void X11ForeignDragsTest::theEndOfTheServerEndsItsDrags()
{
    QVERIFY(beginDrag());
    killServer();
    QVERIFY(waitFor([this] { return m_changes == 2; }));
    QVERIFY(!m_drags->isUnderWay());
    QVERIFY(!m_drags->isOfX11Program());
}

void X11ForeignDragsTest::theNextServerIsWatched()
{
    QVERIFY(beginDrag());
    killServer();
    QVERIFY(waitFor([this] { return m_changes == 2; }));
    startServer();
    QVERIFY(m_drags->watch());
    QVERIFY(beginDrag());
    QVERIFY(m_drags->isOfX11Program());
}

// A connection to one whose process is still there would start another one.
void X11ForeignDragsTest::aServerThatEndsIsLeftAlone()
{
    X11ForeignDrags drags;
    QVERIFY(drags.watch());
    m_desktop->screen().claim("XdndSelection");
    QVERIFY(waitFor([&] { return drags.isUnderWay(); }));
    killServer();
    QVERIFY(waitFor([&] { return !drags.isUnderWay(); }));
    startServer();
    QVERIFY(!drags.watch());
    drags.dragCame();
    QVERIFY(!drags.isOfX11Program());
}

QTEST_GUILESS_MAIN(X11ForeignDragsTest)
#include "X11ForeignDragsTest.moc"
