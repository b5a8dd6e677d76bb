#include "XWaylandPanelWindow.h"

#include "FakeDisplays.h"
#include "ForeignDrags.h"
#include "PrivateDesktop.h"
#include "QtMainQueue.h"
#include "SeenPointer.h"
#include "Waiting.h"
#include "X11DockWindow.h"
#include "XcbAtoms.h"

#include <QGuiApplication>
#include <QTest>
#include <QWindow>

#include <cstdlib>
#include <memory>
#include <vector>

using namespace nookle;
using namespace nookle::e2e;

namespace {

inline constexpr int screenWidth = 1200;
inline constexpr int screenHeight = 700;
inline constexpr int panelWidth = 112;
inline constexpr double cornerRadius = 12;
const QRectF display(0, 0, screenWidth, screenHeight);
const QRectF atRest(screenWidth - panelWidth, 40, panelWidth, 600);

struct NoDrags final : ForeignDrags {
    [[nodiscard]] bool watch() override { return true; }
    void dragCame() override {}
    [[nodiscard]] bool isUnderWay() const override { return false; }
    void end() override {}
};

/// A maximised window of another program, without a frame.
class MaximisedWindow final {
public:
    MaximisedWindow()
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_id(xcb_generate_id(m_connection.get()))
    {
        xcb_connection_t* const connection = m_connection.get();
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, m_id, root, 0, 0, 300, 200, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        set("_NET_WM_STATE", XCB_ATOM_ATOM,
            { xcbAtom(connection, "_NET_WM_STATE_MAXIMIZED_HORZ"),
              xcbAtom(connection, "_NET_WM_STATE_MAXIMIZED_VERT") });
        set("_MOTIF_WM_HINTS", xcbAtom(connection, "_MOTIF_WM_HINTS"), { 2, 0, 0, 0, 0 });
        xcb_map_window(connection, m_id);
        xcb_flush(connection);
    }

    [[nodiscard]] int width() const
    {
        const auto cookie = xcb_get_geometry(m_connection.get(), m_id);
        xcb_get_geometry_reply_t* const reply = xcb_get_geometry_reply(m_connection.get(), cookie, nullptr);
        const int width = reply ? reply->width : 0;
        std::free(reply);
        return width;
    }

private:
    void set(const char* property, xcb_atom_t type, const std::vector<std::uint32_t>& numbers)
    {
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_id, xcbAtom(m_connection.get(), property),
                            type, 32, static_cast<std::uint32_t>(numbers.size()), numbers.data());
    }

    XcbConnection m_connection;
    xcb_window_t m_id;
};

} // namespace

class XWaylandPanelWindowTest : public QObject {
    Q_OBJECT

public:
    XWaylandPanelWindowTest() { m_displays.entries = { { display, display, {} } }; }

private Q_SLOTS:
    void init();
    void cleanup();

    void theFocusThatAParkedPanelGetsIsGivenBackThreeTimes();
    void aMaximisedWindowEndsAtThePanelAndGetsItsSizeBack();
    void theWindowManagerIsRemindedOfTheSpace();

private:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        m_hidings += event->type() == QEvent::Hide ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
    void show()
    {
        m_panel->setFrame(atRest);
        m_panel->orderFront();
    }
    /// Whether the window manager has put the hidden panel there where nobody sees it.
    [[nodiscard]] bool isParked() const;
    /// Gives the window the focus, as a compositor does that gives it to each window that comes.
    void giveFocus() const;
    [[nodiscard]] std::vector<std::uint32_t> strut() const;
    /// What the strut is from now on until nothing more changes.
    [[nodiscard]] std::vector<std::vector<std::uint32_t>> changesOfStrut() const;

    XcbConnection m_connection{ xcb_connect(nullptr, nullptr) };
    FakeDisplays m_displays;
    SeenPointer m_pointer;
    NoDrags m_drags;
    QtMainQueue m_queue;
    std::unique_ptr<QWindow> m_window;
    std::unique_ptr<XWaylandPanelWindow> m_panel;
    int m_hidings = 0;
};

void XWaylandPanelWindowTest::init()
{
    m_window = std::make_unique<QWindow>();
    m_window->setFlags(Qt::FramelessWindowHint);
    m_window->create();
    auto* const connection = qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    m_panel = std::make_unique<XWaylandPanelWindow>(
        *m_window, cornerRadius, XWaylandPanelWindow::Services{ m_displays, m_pointer, m_drags, m_queue }, connection,
        WindowPlacing::windowManager);
    m_window->installEventFilter(this);
    m_panel->expectFrame(atRest);
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    m_hidings = 0;
}

void XWaylandPanelWindowTest::cleanup()
{
    m_panel.reset();
    m_window.reset();
}

bool XWaylandPanelWindowTest::isParked() const
{
    const auto id = static_cast<xcb_window_t>(m_window->winId());
    const auto cookie = xcb_get_window_attributes(m_connection.get(), id);
    xcb_get_window_attributes_reply_t* const reply =
        xcb_get_window_attributes_reply(m_connection.get(), cookie, nullptr);
    const bool isViewable = reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
    std::free(reply);
    return isViewable && m_window->isVisible() && qGuiApp->focusWindow() != m_window.get();
}

void XWaylandPanelWindowTest::giveFocus() const
{
    xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_PARENT, static_cast<xcb_window_t>(m_window->winId()),
                        XCB_CURRENT_TIME);
    xcb_flush(m_connection.get());
}

std::vector<std::uint32_t> XWaylandPanelWindowTest::strut() const
{
    return xcbNumbers(m_connection.get(), static_cast<std::uint32_t>(m_window->winId()),
                      xcbAtom(m_connection.get(), "_NET_WM_STRUT_PARTIAL"));
}

std::vector<std::vector<std::uint32_t>> XWaylandPanelWindowTest::changesOfStrut() const
{
    std::vector<std::vector<std::uint32_t>> changes{ strut() };
    const auto hasChanged = [&] { return strut() != changes.back(); };
    while (waitFor(hasChanged, 1500))
        changes.push_back(strut());
    return changes;
}

void XWaylandPanelWindowTest::theFocusThatAParkedPanelGetsIsGivenBackThreeTimes()
{
    const auto isParkedWithFocus = [this] { return m_window->isVisible() && qGuiApp->focusWindow() == m_window.get(); };
    for (int showing = 0; showing < 2; ++showing) {
        show();
        m_panel->orderOut();
        QVERIFY(waitFor([this] { return m_window->isVisible(); }));
        m_hidings = 0;
        for (int times = 1; times <= 3; ++times) {
            QVERIFY(waitFor([this] { return isParked(); }));
            giveFocus();
            QVERIFY2(waitFor([&] { return m_hidings == times; }), "the focus is kept");
        }
        QVERIFY(waitFor([this] { return isParked(); }));
        giveFocus();
        QVERIFY(waitFor(isParkedWithFocus));
        QVERIFY2(holdsFor([this] { return m_hidings == 3; }, 300), "the focus is given back without end");
    }
}

void XWaylandPanelWindowTest::aMaximisedWindowEndsAtThePanelAndGetsItsSizeBack()
{
    const MaximisedWindow other;
    QVERIFY(waitFor([&] { return other.width() == screenWidth; }));
    show();
    m_panel->reserveSpace(atRest);
    QVERIFY(waitFor([&] { return other.width() == screenWidth - panelWidth; }));
    // A reminder takes no space.
    QVERIFY(holdsFor([&] { return other.width() == screenWidth - panelWidth; }, 2500));
    m_panel->reserveSpace({});
    QVERIFY(waitFor([&] { return other.width() == screenWidth; }));
    QVERIFY(holdsFor([&] { return other.width() == screenWidth; }, 2500));
}

void XWaylandPanelWindowTest::theWindowManagerIsRemindedOfTheSpace()
{
    const std::uint32_t below = screenHeight;
    const std::uint32_t bottom = screenHeight - 1;
    const std::vector<std::uint32_t> mark{ 1, 0, 0, 0, below, below, 0, 0, 0, 0, 0, 0 };
    const std::vector<std::uint32_t> space{ 0, panelWidth, 0, 0, 0, 0, 0, bottom, 0, 0, 0, 0 };
    const std::vector<std::uint32_t> both{ 1, panelWidth, 0, 0, below, below, 0, bottom, 0, 0, 0, 0 };
    show();
    m_panel->reserveSpace(atRest);
    QCOMPARE(changesOfStrut(), (std::vector{ space, both, space, both, space }));
    m_panel->reserveSpace({});
    QCOMPARE(changesOfStrut(), (std::vector{ {}, mark, {}, mark, {} }));
}

int main(int argc, char* argv[])
{
    const auto desktop =
        PrivateDesktop::tryCreate({ QSize(screenWidth, screenHeight), QStringLiteral("openbox"), false });
    if (!desktop || !waitFor([&] { return desktop->screen().rootHas("_NET_CLIENT_LIST"); }))
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    XWaylandPanelWindowTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "XWaylandPanelWindowTest.moc"
