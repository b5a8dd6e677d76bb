#include "X11Backend.h"

#include "CapturedLog.h"
#include "PrivateDesktop.h"
#include "PublishedSettings.h"
#include "ToolkitSettings.h"
#include "Waiting.h"

#include <QGuiApplication>
#include <QTest>

#include <xcb/xcb.h>

#include <functional>
#include <memory>
#include <utility>

using namespace nookle;
using namespace nookle::e2e;

class X11BackendTest : public QObject {
    Q_OBJECT

public:
    explicit X11BackendTest(PrivateDesktop& desktop)
        : m_desktop(desktop)
    {
    }

private Q_SLOTS:
    void init() { m_backend = std::make_unique<X11Backend>(); }
    void cleanup() { m_backend.reset(); }

    void thePointerIsWhereItIs();
    void theLeftButtonIsSeenInAnyProgram();
    void eachMonitorOfTheServerIsADisplay();
    void aDisplayMayHaveAWorkAreaOfItsOwn();
    void aDockTakesItsPlaceFromTheDisplay();
    void aPressIsReportedAndAnotherButtonIsNot();
    void theButtonsFollowTheUsersMapping();
    void movementsAreReportedOnlyWhileTheLeftButtonIsDown();
    void aMonitorThatIsGoneHearsNothing();
    void aDragOfAnotherProgramMovesTheCounter();
    void aDragOfThisProgramLeavesTheCounterAlone();
    void aShortcutIsPressedOnceForEachPress();
    void aShortcutPressedWhileTheServerIsAskedIsNotMissed();
    void aShortcutThatAnotherProgramHoldsCannotBeHad();
    void aShortcutFollowsTheKeyboardsLayout();
    void aShortcutThatIsLostWithALayoutIsSaid();
    void aShortcutThatIsGivenUpIsFreeForOthers();
    void theSettingsForAllToolkitsAreReadAndFollowed();

private:
    [[nodiscard]] XScreen& screen() { return m_desktop.screen(); }
    void pressShortcut();
    /// Puts another letter on a key of the keyboard.
    static void setLetter(xcb_keycode_t key, char letter);
    /// Registers the shelf's own shortcut.
    [[nodiscard]] static std::unique_ptr<Cancellable> registerShortcut(
        DesktopBackend& backend, std::function<void()> pressed = [] {});

    PrivateDesktop& m_desktop;
    std::unique_ptr<X11Backend> m_backend;
};

void X11BackendTest::thePointerIsWhereItIs()
{
    screen().moveTo({ 123, 45 });
    QCOMPARE(m_backend->pointer().position(), QPointF(123, 45));
}

void X11BackendTest::theLeftButtonIsSeenInAnyProgram()
{
    QVERIFY(!m_backend->pointer().isLeftButtonDown());
    screen().press();
    QVERIFY(waitFor([this] { return m_backend->pointer().isLeftButtonDown(); }));
    screen().release();
    QVERIFY(waitFor([this] { return !m_backend->pointer().isLeftButtonDown(); }));
}

void X11BackendTest::eachMonitorOfTheServerIsADisplay()
{
    const std::vector<QRectF> expected{ { 0, 0, 900, 700 }, { 900, 0, 900, 700 } };
    QCOMPARE(m_backend->displays().frames(), expected);
    QVERIFY(m_backend->displays().mainFrame().has_value());
}

void X11BackendTest::aDisplayMayHaveAWorkAreaOfItsOwn()
{
    screen().setRootNumbers("_GTK_WORKAREAS_D0", { 0, 32, 900, 668, 900, 0, 850, 700 });
    const QRectF left(0, 0, 900, 700);
    QVERIFY(waitFor([&] { return m_backend->displays().visibleFrame(left) == QRectF(0, 32, 900, 668); }));
    QCOMPARE(m_backend->displays().visibleFrame(QRectF(900, 0, 900, 700)), QRectF(900, 0, 850, 700));
    screen().removeFromRoot("_GTK_WORKAREAS_D0");
    QVERIFY(waitFor([&] { return m_backend->displays().visibleFrame(left) == left; }));
}

void X11BackendTest::aDockTakesItsPlaceFromTheDisplay()
{
    const QRectF left(0, 0, 900, 700);
    QCOMPARE(m_backend->displays().visibleFrame(left), left);
    screen().showDock(40);
    QVERIFY(waitFor([&] { return m_backend->displays().visibleFrame(left) == QRectF(0, 40, 900, 660); }));
    const QRectF right(900, 0, 900, 700);
    QCOMPARE(m_backend->displays().visibleFrame(right), QRectF(900, 40, 900, 660));
}

void X11BackendTest::aPressIsReportedAndAnotherButtonIsNot()
{
    int presses = 0;
    const auto monitor = m_backend->inputMonitor().monitorLeftPress([&] { ++presses; });
    QVERIFY(monitor);
    screen().press(3);
    screen().release(3);
    screen().press();
    screen().release();
    QVERIFY(waitFor([&] { return presses == 1; }));
    QVERIFY(holdsFor([&] { return presses == 1; }, 100));
}

void X11BackendTest::theButtonsFollowTheUsersMapping()
{
    int presses = 0;
    const auto monitor = m_backend->inputMonitor().monitorLeftPress([&] { ++presses; });
    screen().mapButtons({ 3, 2, 1 });
    screen().press(1);
    screen().release(1);
    screen().press(3);
    QVERIFY(waitFor([&] { return presses == 1; }));
    QVERIFY(m_backend->pointer().isLeftButtonDown());
    screen().release(3);
    QVERIFY(holdsFor([&] { return presses == 1; }, 100));

    // A mapping that was there before the program is followed as well.
    X11Backend later;
    int laterPresses = 0;
    const auto laterMonitor = later.inputMonitor().monitorLeftPress([&] { ++laterPresses; });
    screen().press(3);
    screen().release(3);
    QVERIFY(waitFor([&] { return laterPresses == 1; }));
    screen().mapButtons({ 1, 2, 3 });
}

void X11BackendTest::movementsAreReportedOnlyWhileTheLeftButtonIsDown()
{
    int presses = 0;
    int movements = 0;
    const auto press = m_backend->inputMonitor().monitorLeftPress([&] { ++presses; });
    const auto drag = m_backend->inputMonitor().monitorLeftDrag([&] { ++movements; });
    screen().moveTo({ 100, 100 });
    QVERIFY(holdsFor([&] { return movements == 0; }, 100));
    screen().press();
    QVERIFY(waitFor([&] { return presses == 1; }));
    // The server has to hear of the wish for movements first.
    QVERIFY(waitFor([&] {
        screen().moveTo(screen().pointer() + QPoint(2, 0));
        return movements > 0;
    }));
    screen().release();
    screen().moveTo({ 100, 100 });
    QVERIFY(waitFor([&] { return !m_backend->pointer().isLeftButtonDown(); }));
    QCoreApplication::processEvents();
    const int before = movements;
    screen().moveTo({ 200, 100 });
    QVERIFY(holdsFor([&] { return movements == before; }, 100));
}

void X11BackendTest::aMonitorThatIsGoneHearsNothing()
{
    int gone = 0;
    int present = 0;
    auto first = m_backend->inputMonitor().monitorLeftPress([&] { ++gone; });
    const auto second = m_backend->inputMonitor().monitorLeftPress([&] { ++present; });
    first.reset();
    screen().press();
    screen().release();
    QVERIFY(waitFor([&] { return present == 1; }));
    QCOMPARE(gone, 0);
}

void X11BackendTest::aDragOfAnotherProgramMovesTheCounter()
{
    const qint64 before = m_backend->inputMonitor().dragChangeCount();
    screen().claim("XdndSelection");
    QVERIFY(waitFor([&] { return m_backend->inputMonitor().dragChangeCount() != before; }));
}

void X11BackendTest::aDragOfThisProgramLeavesTheCounterAlone()
{
    const qint64 before = m_backend->inputMonitor().dragChangeCount();
    xcb_connection_t* own = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    const xcb_window_t window = xcb_generate_id(own);
    const xcb_screen_t* xScreen = xcb_setup_roots_iterator(xcb_get_setup(own)).data;
    xcb_create_window(own, XCB_COPY_FROM_PARENT, window, xScreen->root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    const QByteArray name("XdndSelection");
    const auto cookie = xcb_intern_atom(own, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    xcb_intern_atom_reply_t* selection = xcb_intern_atom_reply(own, cookie, nullptr);
    xcb_set_selection_owner(own, window, selection->atom, XCB_CURRENT_TIME);
    std::free(selection);
    xcb_flush(own);
    QVERIFY(holdsFor([&] { return m_backend->inputMonitor().dragChangeCount() == before; }, 200));
    // The next drag of another program shows that the monitor was listening.
    screen().claim("XdndSelection");
    QVERIFY(waitFor([&] { return m_backend->inputMonitor().dragChangeCount() == before + 1; }));
}

std::unique_ptr<Cancellable> X11BackendTest::registerShortcut(DesktopBackend& backend, std::function<void()> pressed)
{
    const QKeyCombination keys(Qt::CTRL | Qt::ALT | Qt::META, Qt::Key_D);
    return backend.globalShortcuts().registerShortcut(keys, QStringLiteral("Show or hide the shelf"),
                                                      std::move(pressed));
}

void X11BackendTest::pressShortcut()
{
    const std::vector<xcb_keysym_t> keys{ XScreen::control, XScreen::alt, XScreen::super, 'd' };
    for (const xcb_keysym_t key : keys)
        screen().pressKey(key);
    for (const xcb_keysym_t key : keys)
        screen().releaseKey(key);
}

void X11BackendTest::setLetter(xcb_keycode_t key, char letter)
{
    const xcb_keysym_t symbols[] = { static_cast<xcb_keysym_t>(letter), static_cast<xcb_keysym_t>(letter - 'a' + 'A') };
    xcb_connection_t* connection = xcb_connect(nullptr, nullptr);
    const auto cookie = xcb_change_keyboard_mapping_checked(connection, 1, key, 2, symbols);
    std::free(xcb_request_check(connection, cookie));
    xcb_disconnect(connection);
}

void X11BackendTest::aShortcutIsPressedOnceForEachPress()
{
    int presses = 0;
    const auto registration = registerShortcut(*m_backend, [&] { ++presses; });
    QVERIFY(registration);
    pressShortcut();
    QVERIFY(waitFor([&] { return presses == 1; }));
    screen().pressKey('d');
    screen().releaseKey('d');
    pressShortcut();
    QVERIFY(waitFor([&] { return presses >= 2; }));
    QCOMPARE(presses, 2);
}

void X11BackendTest::aShortcutPressedWhileTheServerIsAskedIsNotMissed()
{
    int presses = 0;
    const auto registration = registerShortcut(*m_backend, [&] { ++presses; });
    QVERIFY(registration);
    pressShortcut();
    // Its answers bring the keys along.
    const auto another = registerShortcut(*m_backend);
    QVERIFY(waitFor([&] { return presses > 0; }));
}

void X11BackendTest::aShortcutThatAnotherProgramHoldsCannotBeHad()
{
    X11Backend other;
    const auto held = registerShortcut(other);
    QVERIFY(held);
    QCOMPARE(other.globalShortcuts().boundKeys(), QStringLiteral("Ctrl+Alt+Super+D"));
    QCOMPARE(other.globalShortcuts().obstacle(), QString());
    CapturedLog log;
    QVERIFY(!registerShortcut(*m_backend));
    QCOMPARE(log.lines(),
             QStringList{ QStringLiteral("Nookle: another program may hold the shortcut Ctrl+Alt+Super+D") });
    QCOMPARE(m_backend->globalShortcuts().boundKeys(), QString());
    QCOMPARE(m_backend->globalShortcuts().obstacle(), QStringLiteral("Another program may hold Ctrl+Alt+Super+D."));
}

void X11BackendTest::aShortcutFollowsTheKeyboardsLayout()
{
    int presses = 0;
    const auto registration = registerShortcut(*m_backend, [&] { ++presses; });
    // "D" and "F" change places.
    const xcb_keycode_t d = screen().keyFor('d');
    const xcb_keycode_t f = screen().keyFor('f');
    setLetter(d, 'f');
    setLetter(f, 'd');
    QVERIFY(waitFor([&] { return screen().isShortcutHeld(f); }));
    QVERIFY(!screen().isShortcutHeld(d));
    pressShortcut();
    QVERIFY(waitFor([&] { return presses == 1; }));
    setLetter(f, 'f');
    setLetter(d, 'd');
    QVERIFY(waitFor([&] { return screen().isShortcutHeld(d); }));
}

void X11BackendTest::aShortcutThatIsLostWithALayoutIsSaid()
{
    GlobalShortcuts& shortcuts = m_backend->globalShortcuts();
    int changes = 0;
    const auto counting = connect(&shortcuts, &GlobalShortcuts::changed, this, [&] { ++changes; });
    const auto registration = registerShortcut(*m_backend);
    const xcb_keycode_t d = screen().keyFor('d');
    const xcb_keycode_t f = screen().keyFor('f');
    xcb_connection_t* holder = xcb_connect(nullptr, nullptr);
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(holder)).data->root;
    // The server may still hold keys of the test before.
    QVERIFY(waitFor([&] {
        const auto grab =
            xcb_grab_key_checked(holder, 0, root, XCB_MOD_MASK_ANY, f, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        xcb_generic_error_t* refusal = xcb_request_check(holder, grab);
        std::free(refusal);
        return refusal == nullptr;
    }));
    setLetter(d, 'f');
    setLetter(f, 'd');
    QVERIFY(waitFor([&] { return !shortcuts.obstacle().isEmpty(); }));
    QCOMPARE(shortcuts.boundKeys(), QString());
    QCOMPARE(shortcuts.boundCombination(), std::nullopt);
    QCOMPARE(changes, 1);
    xcb_disconnect(holder);
    setLetter(f, 'f');
    setLetter(d, 'd');
    QVERIFY(waitFor([&] { return shortcuts.boundKeys() == QLatin1String("Ctrl+Alt+Super+D"); }));
    QCOMPARE(shortcuts.boundCombination(), Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::Key_D);
    QCOMPARE(changes, 2);
    disconnect(counting);
}

void X11BackendTest::aShortcutThatIsGivenUpIsFreeForOthers()
{
    auto registration = registerShortcut(*m_backend);
    QVERIFY(registration);
    QVERIFY(screen().isShortcutHeld(screen().keyFor('d')));
    registration.reset();
    QVERIFY(waitFor([this] { return !screen().isShortcutHeld(screen().keyFor('d')); }));
}

void X11BackendTest::theSettingsForAllToolkitsAreReadAndFollowed()
{
    ToolkitSettings& settings = *m_backend->toolkitSettings();
    QVERIFY(settings.values().isEmpty());
    const auto iconTheme = [&] { return settings.values().value("Net/IconThemeName").toString(); };
    int changes = 0;
    settings.onChanged = [&] { ++changes; };
    {
        PublishedSettings published(m_desktop.display());
        published.publish({ { "Net/ThemeName", "Sky" }, { "Net/IconThemeName", "Moon" } });
        QVERIFY(waitFor([&] { return iconTheme() == QLatin1String("Moon"); }));
        published.publish({ { "Net/IconThemeName", "Star" } });
        QVERIFY(waitFor([&] { return iconTheme() == QLatin1String("Star"); }));
        m_backend = std::make_unique<X11Backend>();
        QCOMPARE(m_backend->toolkitSettings()->values().value("Net/IconThemeName").toString(), QStringLiteral("Star"));
    }
    QVERIFY(waitFor([this] { return m_backend->toolkitSettings()->values().isEmpty(); }));
    QCOMPARE(changes, 2);
}

int main(int argc, char* argv[])
{
    const auto desktop = PrivateDesktop::tryCreate({ QSize(1800, 700), QStringLiteral("openbox"), true });
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    X11BackendTest test(*desktop);
    return QTest::qExec(&test, argc, argv);
}
#include "X11BackendTest.moc"
