#include "X11PanelShadow.h"

#include "AddedWindow.h"
#include "FakeCompositing.h"
#include "PrivateDesktop.h"
#include "XcbOwned.h"

#include <QGuiApplication>
#include <QTest>

#include <memory>
#include <optional>
#include <vector>

#include <xcb/shape.h>
#include <xcb/xcb.h>

using namespace nookle;
using namespace nookle::e2e;

namespace {

inline constexpr int radius = 12;
inline constexpr int extent = 24;
const QRect panel(1088, 24, 112, 652);

} // namespace

/// The shadow that this program draws itself. `X11PanelWindowTest` has the one that it describes.
class X11PanelShadowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void whereACompositingManagerDrawsNoneThereIsAWindowAroundThePanel();
    void theWindowTakesNoInputAndLeavesThePanelFree();
    void theWindowFollowsThePanelAndStaysOnItsDisplay();
    void withoutCompositingThereIsNone();
    void theWindowComesAndGoesWithCompositing();
    void theWindowGoesWithThePanel();
    void whereTheCompositingManagerDrawsTheShadowThereIsNoWindow();
    void itsPicturesAreKeptWhileTheCornersStayTheSame();

private:
    /// The window of the shadow; none when there is none.
    [[nodiscard]] std::optional<xcb_window_t> shadowWindow() const { return m_added->find(); }
    [[nodiscard]] xcb_atom_t atom(QByteArrayView name) const;
    /// What the panel's window tells the compositing manager of its shadow.
    [[nodiscard]] std::vector<std::uint32_t> description() const;
    void show();

    e2e::XcbConnection m_connection;
    xcb_window_t m_root = 0;
    std::optional<AddedWindow> m_added;
    FakeCompositing m_compositing;
    std::unique_ptr<X11PanelShadow> m_shadow;
};

void X11PanelShadowTest::init()
{
    m_connection.reset(xcb_connect(nullptr, nullptr));
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    m_added.emplace(m_connection.get());
    m_compositing.change(Backdrop::translucent);
    m_shadow = std::make_unique<X11PanelShadow>(m_connection.get(), m_root, m_compositing);
}

void X11PanelShadowTest::cleanup()
{
    m_shadow.reset();
    m_connection.reset();
}

xcb_atom_t X11PanelShadowTest::atom(QByteArrayView name) const
{
    const auto length = static_cast<std::uint16_t>(name.size());
    return owned(xcb_intern_atom_reply(m_connection.get(), xcb_intern_atom(m_connection.get(), 0, length, name.data()),
                                       nullptr))
        ->atom;
}

std::vector<std::uint32_t> X11PanelShadowTest::description() const
{
    return xcbNumbers(m_connection.get(), m_root, atom("_KDE_NET_WM_SHADOW"));
}

void X11PanelShadowTest::show()
{
    m_shadow->move(panel, std::nullopt);
    m_shadow->show(radius);
}

void X11PanelShadowTest::whereACompositingManagerDrawsNoneThereIsAWindowAroundThePanel()
{
    QVERIFY(!shadowWindow());
    show();
    const auto window = shadowWindow();
    QVERIFY(window);
    QCOMPARE(m_added->frame(*window), panel.adjusted(-extent, -extent, 0, extent));
    QVERIFY(m_added->isLeftAlone(*window));
    QVERIFY(m_added->isShown(*window));
}

void X11PanelShadowTest::theWindowTakesNoInputAndLeavesThePanelFree()
{
    show();
    const auto window = shadowWindow();
    QVERIFY(window);
    QVERIFY(m_added->shape(*window, XCB_SHAPE_SK_INPUT).empty());
    const auto parts = m_added->shape(*window, XCB_SHAPE_SK_BOUNDING);
    QVERIFY(!parts.empty());
    // Of the panel, only the rows with its round corners.
    const QRect middle = QRect(extent, extent, panel.width(), panel.height()).adjusted(0, radius, 0, -radius);
    for (const QRect& part : parts)
        QVERIFY(!part.intersects(middle));
}

void X11PanelShadowTest::theWindowFollowsThePanelAndStaysOnItsDisplay()
{
    show();
    const QRect sliding = panel.translated(60, 0);
    m_shadow->move(sliding, panel.left() + panel.width());
    const auto window = shadowWindow();
    QVERIFY(window);
    QCOMPARE(m_added->frame(*window).topLeft(), sliding.topLeft() - QPoint(extent, extent));
    for (const QRect& part : m_added->shape(*window, XCB_SHAPE_SK_BOUNDING))
        QVERIFY(m_added->frame(*window).left() + part.left() + part.width() <= panel.left() + panel.width());
}

void X11PanelShadowTest::withoutCompositingThereIsNone()
{
    m_compositing.change(Backdrop::opaque);
    show();
    QVERIFY(!shadowWindow());
}

void X11PanelShadowTest::theWindowComesAndGoesWithCompositing()
{
    m_compositing.change(Backdrop::opaque);
    show();
    m_compositing.change(Backdrop::translucent);
    m_shadow->compositingChanged();
    QVERIFY(shadowWindow());
    m_compositing.change(Backdrop::opaque);
    m_shadow->compositingChanged();
    QVERIFY(!shadowWindow());
}

void X11PanelShadowTest::theWindowGoesWithThePanel()
{
    show();
    QVERIFY(shadowWindow());
    m_shadow->hide();
    QVERIFY(!shadowWindow());
    // The parked panel moves, too.
    m_shadow->move({ 2000, 2000, 1, 1 }, std::nullopt);
    m_shadow->compositingChanged();
    QVERIFY(!shadowWindow());
}

void X11PanelShadowTest::whereTheCompositingManagerDrawsTheShadowThereIsNoWindow()
{
    const xcb_atom_t supported = atom("_NET_SUPPORTED");
    const xcb_atom_t shadow = atom("_KDE_NET_WM_SHADOW");
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_APPEND, m_root, supported, XCB_ATOM_ATOM, 32, 1, &shadow);
    show();
    QVERIFY(!shadowWindow());
}

void X11PanelShadowTest::itsPicturesAreKeptWhileTheCornersStayTheSame()
{
    show();
    const auto first = description();
    QVERIFY(!first.empty());
    m_shadow->hide();
    QVERIFY(description().empty());
    m_shadow->show(radius);
    QCOMPARE(description(), first);
    m_shadow->hide();
    m_shadow->show(2 * radius);
    QVERIFY(description() != first);
    QCOMPARE(description().size(), first.size());
}

int main(int argc, char* argv[])
{
    const auto desktop = PrivateDesktop::tryCreate({ QSize(1200, 700), QString(), false });
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    X11PanelShadowTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "X11PanelShadowTest.moc"
