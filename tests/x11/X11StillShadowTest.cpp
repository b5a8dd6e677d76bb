#include "X11StillShadow.h"

#include "AddedWindow.h"
#include "PrivateDesktop.h"
#include "XcbAtoms.h"
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
inline constexpr QRect display(0, 0, 1200, 700);
inline constexpr QRect panel(1088, 24, 112, 652);
inline constexpr int row = 300;

} // namespace

/// The shadow of a panel whose window does not move, on a server that nobody manages.
class X11StillShadowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theWindowLiesAroundThePanelAndEndsWithIt();
    void theWindowEndsWithTheDisplay();
    void theWindowTakesNoInputAndNoFocus();
    void theWindowIsOfThePanelsKind();
    void theWindowManagerMayBeKeptOut();
    void thePictureSlidesWithTheContent();
    void anotherPlaceHasAnotherWindow();
    void nothingIsSentWhenNothingChanges();
    void hiddenThereIsNoWindow();

private:
    void show(WindowPlacing placing = WindowPlacing::windowManager);
    /// Whether the shadow covers a pixel of a row of the root window.
    [[nodiscard]] bool isShadowAt(int x) const;
    [[nodiscard]] std::vector<std::uint32_t> numbers(xcb_atom_t property) const
    {
        return xcbNumbers(m_connection.get(), m_added->find().value_or(XCB_NONE), property);
    }

    e2e::XcbConnection m_connection;
    std::optional<AddedWindow> m_added;
    std::unique_ptr<X11StillShadow> m_shadow;
};

void X11StillShadowTest::init()
{
    m_connection.reset(xcb_connect(nullptr, nullptr));
    m_added.emplace(m_connection.get());
}

void X11StillShadowTest::cleanup()
{
    m_shadow.reset();
    m_connection.reset();
}

void X11StillShadowTest::show(WindowPlacing placing)
{
    m_shadow = std::make_unique<X11StillShadow>(m_connection.get(), placing);
    m_shadow->show(panel, radius, display);
}

bool X11StillShadowTest::isShadowAt(int x) const
{
    const xcb_window_t window = m_added->find().value_or(XCB_NONE);
    const auto at = static_cast<std::int16_t>(x - m_added->frame(window).left());
    const auto reply = owned(xcb_get_image_reply(
        m_connection.get(),
        xcb_get_image(m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, at, row, 1, 1, 0xffffffff), nullptr));
    return xcb_get_image_data(reply.get())[3] != 0;
}

void X11StillShadowTest::theWindowLiesAroundThePanelAndEndsWithIt()
{
    QVERIFY(!m_added->find());
    show();
    const auto window = m_added->find();
    QVERIFY(window);
    QVERIFY(m_added->isShown(*window));
    QCOMPARE(m_added->frame(*window), panel.adjusted(-extent, -extent, 0, extent));
}

void X11StillShadowTest::theWindowEndsWithTheDisplay()
{
    show();
    const QRect low = panel.adjusted(0, 0, 0, 10);
    m_shadow->show(low, radius, display);
    QCOMPARE(m_added->frame(m_added->find().value()), low.adjusted(-extent, -extent, 0, 14));
}

void X11StillShadowTest::theWindowTakesNoInputAndNoFocus()
{
    show();
    QVERIFY(m_added->shape(m_added->find().value(), XCB_SHAPE_SK_INPUT).empty());
    const auto hints = numbers(XCB_ATOM_WM_HINTS);
    QVERIFY(hints.size() == 9);
    QCOMPARE(hints[0], 1U);
    QCOMPARE(hints[1], 0U);
}

void X11StillShadowTest::theWindowIsOfThePanelsKind()
{
    show();
    QVERIFY(!m_added->isLeftAlone(m_added->find().value()));
    const auto type = xcbAtom(m_connection.get(), "_NET_WM_WINDOW_TYPE");
    QCOMPARE(numbers(type), std::vector{ xcbAtom(m_connection.get(), "_NET_WM_WINDOW_TYPE_DOCK") });
    m_shadow->setToolWindow(true);
    QCOMPARE(numbers(type), std::vector{ xcbAtom(m_connection.get(), "_NET_WM_WINDOW_TYPE_UTILITY") });
}

void X11StillShadowTest::theWindowManagerMayBeKeptOut()
{
    show(WindowPlacing::program);
    QVERIFY(m_added->isLeftAlone(m_added->find().value()));
}

void X11StillShadowTest::thePictureSlidesWithTheContent()
{
    show();
    QVERIFY(isShadowAt(panel.left() - 1));
    QVERIFY(!isShadowAt(panel.left()));
    m_shadow->slide(60);
    QCOMPARE(m_added->frame(m_added->find().value()).topLeft(), panel.topLeft() - QPoint(extent, extent));
    QVERIFY(!isShadowAt(panel.left() - 1));
    QVERIFY(isShadowAt(panel.left() + 59));
    QVERIFY(!isShadowAt(panel.left() + 60));
    m_shadow->slide(0);
    QVERIFY(isShadowAt(panel.left() - 1));
}

void X11StillShadowTest::anotherPlaceHasAnotherWindow()
{
    show();
    const QRect higher = panel.adjusted(0, 0, 0, -200);
    m_shadow->show(higher, radius, display);
    const auto window = m_added->find();
    QVERIFY(window);
    QCOMPARE(m_added->frame(*window), higher.adjusted(-extent, -extent, 0, extent));
}

void X11StillShadowTest::nothingIsSentWhenNothingChanges()
{
    show();
    const auto before = xcb_no_operation(m_connection.get()).sequence;
    m_shadow->slide(0);
    QCOMPARE(xcb_no_operation(m_connection.get()).sequence, before + 1);
}

void X11StillShadowTest::hiddenThereIsNoWindow()
{
    show();
    QVERIFY(m_added->find());
    m_shadow->hide();
    QVERIFY(!m_added->find());
    m_shadow->slide(30);
    QVERIFY(!m_added->find());
    m_shadow->show(panel, radius, display);
    QVERIFY(isShadowAt(panel.left() + 29));
}

int main(int argc, char* argv[])
{
    const auto desktop = PrivateDesktop::tryCreate({ display.size(), QString(), false });
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    X11StillShadowTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "X11StillShadowTest.moc"
