#include "X11Compositing.h"

#include "PrivateDesktop.h"
#include "Waiting.h"
#include "XcbAtoms.h"
#include "XcbConnection.h"
#include "XcbRoot.h"

#include <QGuiApplication>
#include <QTest>

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

using namespace nookle;
using namespace nookle::e2e;

class X11CompositingTest : public QObject {
    Q_OBJECT

public:
    explicit X11CompositingTest(PrivateDesktop& desktop)
        : m_desktop(desktop)
    {
    }

private Q_SLOTS:
    void init();
    void cleanup();

    void theManagerMakesWindowsTranslucent();
    void blurThatIsSwitchedOffAndOnIsFollowed();
    void blurWithoutAManagerCountsForNothing();

private:
    void startManager();
    void endManager() { m_manager.reset(); }
    void setBlur() { m_desktop.screen().setRootNumbers(blur, { 0 }); }
    void removeBlur() { m_desktop.screen().removeFromRoot(blur); }

    static constexpr const char* blur = "_KDE_NET_WM_BLUR_BEHIND_REGION";

    PrivateDesktop& m_desktop;
    nookle::XcbConnection m_manager;
    std::unique_ptr<X11Compositing> m_compositing;
    int m_changes = 0;
};

void X11CompositingTest::init()
{
    const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    m_compositing = std::make_unique<X11Compositing>(application->connection());
    m_changes = 0;
    connect(m_compositing.get(), &Compositing::backdropChanged, this, [this] { ++m_changes; });
}

void X11CompositingTest::cleanup()
{
    endManager();
    removeBlur();
    m_compositing.reset();
}

void X11CompositingTest::startManager()
{
    m_manager.reset(xcb_connect(nullptr, nullptr));
    const xcb_window_t window = xcb_generate_id(m_manager.get());
    xcb_create_window(m_manager.get(), XCB_COPY_FROM_PARENT, window, rootOf(m_manager.get()), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_set_selection_owner(m_manager.get(), window, xcbAtom(m_manager.get(), "_NET_WM_CM_S0"), XCB_CURRENT_TIME);
    xcb_flush(m_manager.get());
}

void X11CompositingTest::theManagerMakesWindowsTranslucent()
{
    QCOMPARE(m_compositing->backdrop(), Backdrop::opaque);
    startManager();
    QVERIFY(waitFor([this] { return m_compositing->backdrop() == Backdrop::translucent; }));
    endManager();
    QVERIFY(waitFor([this] { return m_compositing->backdrop() == Backdrop::opaque; }));
    QCOMPARE(m_changes, 2);
}

void X11CompositingTest::blurThatIsSwitchedOffAndOnIsFollowed()
{
    setBlur();
    startManager();
    QVERIFY(waitFor([this] { return m_compositing->backdrop() == Backdrop::blurred; }));
    removeBlur();
    QVERIFY(waitFor([this] { return m_compositing->backdrop() == Backdrop::translucent; }));
    setBlur();
    QVERIFY(waitFor([this] { return m_compositing->backdrop() == Backdrop::blurred; }));
    QCOMPARE(m_changes, 3);
}

void X11CompositingTest::blurWithoutAManagerCountsForNothing()
{
    setBlur();
    QVERIFY(holdsFor([this] { return m_compositing->backdrop() == Backdrop::opaque; }, 200));
    QCOMPARE(m_changes, 0);
}

int main(int argc, char* argv[])
{
    const auto desktop = PrivateDesktop::tryCreate({ QSize(800, 600), QStringLiteral("openbox"), false });
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    X11CompositingTest test(*desktop);
    return QTest::qExec(&test, argc, argv);
}
#include "X11CompositingTest.moc"
