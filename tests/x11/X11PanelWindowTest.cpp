#include "X11Backend.h"

#include "PrivateDesktop.h"
#include "Waiting.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <QWindow>

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

using namespace nookle;
using namespace nookle::e2e;

namespace {

// Two displays of 800 by 600 pixels side by side, in which a point is two pixels.
inline constexpr int displayWidth = 800;
inline constexpr int displayHeight = 600;
inline constexpr double scale = 2;
const QRectF leftDisplay(0, 0, 400, 300);
const QRectF leftAtRest(400 - 112, 24, 112, 252);
// An origin is in pixels, a size in points.
const QRectF rightDisplay(800, 0, 400, 300);
const QRectF rightAtRest(800 + 400 - 112, 24, 112, 252);
const QRect leftPixelsAtRest(576, 48, 224, 504);

} // namespace

class X11PanelWindowTest : public QObject {
    Q_OBJECT

public:
    explicit X11PanelWindowTest(PrivateDesktop& desktop)
        : m_desktop(desktop)
    {
    }

private Q_SLOTS:
    void init();
    void cleanup();

    void displaysKeepTheirOriginInPixels();
    void thePanelRestsAtTheRightEdgeOfItsOwnDisplay_data();
    void thePanelRestsAtTheRightEdgeOfItsOwnDisplay();
    void theSlideShowsNothingOnTheNeighbour();
    void aPanelThatWasOnlyPutThereSlidesOutBehindItsEdge();
    void theSlideTakesAsLongAsItIsTold_data();
    void theSlideTakesAsLongAsItIsTold();
    void theSlideFollowsItsCurve_data();
    void theSlideFollowsItsCurve();
    void aParkedPanelIsAPointBeyondAllDisplays();
    void aParkedPanelGivesTheKeysBack();
    void thePanelDescribesItsShadowWhileItIsShown();
    void spaceIsReservedAtTheDesktopsEdgeAlone();
    void thePanelMayUseTheSpaceThatItReserves();
    void theCornersAreCutAlongTheirCircle();
    void theNeighbourStaysFreeWhenDisplaysComeAndGo();

private:
    struct Sample {
        /// Of the way, at that share of the time.
        double share = 0;
        double time = 0;
    };

    [[nodiscard]] QRect windowPixels() const;
    [[nodiscard]] bool isParked() const;
    [[nodiscard]] std::vector<std::uint32_t> numbers(QByteArrayView property) const;
    [[nodiscard]] std::vector<std::uint32_t> shadow() const { return numbers("_KDE_NET_WM_SHADOW"); }
    [[nodiscard]] std::vector<std::uint32_t> strut() const { return numbers("_NET_WM_STRUT_PARTIAL"); }
    /// What the shape lets through, on the root window.
    [[nodiscard]] QRect visiblePixels() const;
    /// Slides the panel, and returns where it was seen meanwhile.
    std::vector<Sample> slide(const QRectF& to, double seconds, Easing easing);

    PrivateDesktop& m_desktop;
    std::unique_ptr<X11Backend> m_backend;
    std::unique_ptr<QWindow> m_window;
    std::unique_ptr<PanelWindow> m_panel;
    e2e::XcbConnection m_connection;
};

void X11PanelWindowTest::init()
{
    m_connection.reset(xcb_connect(nullptr, nullptr));
    m_backend = std::make_unique<X11Backend>();
    m_window = std::make_unique<QWindow>();
    m_window->setFlags(Qt::FramelessWindowHint);
    m_window->create();
    m_panel = m_backend->makePanelWindow(*m_window, 12);
    // The window manager begins with the place that it finds, whatever is asked for meanwhile.
    QVERIFY(waitFor([this] { return isParked(); }));
}

void X11PanelWindowTest::cleanup()
{
    m_panel.reset();
    m_window.reset();
    m_backend.reset();
}

QRect X11PanelWindowTest::windowPixels() const
{
    const auto id = static_cast<xcb_window_t>(m_window->winId());
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
    const auto geometry =
        owned(xcb_get_geometry_reply(m_connection.get(), xcb_get_geometry(m_connection.get(), id), nullptr));
    const auto place = owned(xcb_translate_coordinates_reply(
        m_connection.get(), xcb_translate_coordinates(m_connection.get(), id, root, 0, 0), nullptr));
    return { place->dst_x, place->dst_y, geometry->width, geometry->height };
}

bool X11PanelWindowTest::isParked() const
{
    const QRect all(0, 0, 2 * displayWidth, displayHeight);
    return windowPixels().width() <= scale && !windowPixels().intersects(all);
}

QRect X11PanelWindowTest::visiblePixels() const
{
    const auto id = static_cast<xcb_window_t>(m_window->winId());
    const auto extents = owned(
        xcb_shape_query_extents_reply(m_connection.get(), xcb_shape_query_extents(m_connection.get(), id), nullptr));
    const QRect shape(extents->bounding_shape_extents_x, extents->bounding_shape_extents_y,
                      extents->bounding_shape_extents_width, extents->bounding_shape_extents_height);
    const QRect window = windowPixels();
    return shape.intersected(QRect(QPoint(), window.size())).translated(window.topLeft());
}

std::vector<X11PanelWindowTest::Sample> X11PanelWindowTest::slide(const QRectF& to, double seconds, Easing easing)
{
    const double from = m_panel->frame().left();
    std::vector<Sample> samples;
    bool isDone = false;
    QElapsedTimer clock;
    clock.start();
    m_panel->animateFrame(to, seconds, easing, [&] { isDone = true; });
    while (!isDone && clock.elapsed() < patience) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        const double time = static_cast<double>(clock.nsecsElapsed()) / 1e9;
        samples.push_back({ (m_panel->frame().left() - from) / (to.left() - from), time });
    }
    return samples;
}

void X11PanelWindowTest::displaysKeepTheirOriginInPixels()
{
    const std::vector<QRectF> expected{ leftDisplay, leftDisplay.translated(displayWidth, 0) };
    QCOMPARE(m_backend->displays().frames(), expected);
    QVERIFY(!m_backend->displays().identity(expected[0]).isEmpty());
    QVERIFY(m_backend->displays().identity(expected[0]) != m_backend->displays().identity(expected[1]));
}

void X11PanelWindowTest::thePanelRestsAtTheRightEdgeOfItsOwnDisplay_data()
{
    QTest::addColumn<int>("origin");
    QTest::newRow("left") << 0;
    QTest::newRow("right") << displayWidth;
}

void X11PanelWindowTest::thePanelRestsAtTheRightEdgeOfItsOwnDisplay()
{
    QFETCH(int, origin);
    // The other one before, so that the toolkit takes the window for that one's.
    m_panel->setFrame(leftAtRest.translated(displayWidth - origin, 0));
    m_panel->orderFront();
    QVERIFY(waitFor([&] { return windowPixels() == leftPixelsAtRest.translated(displayWidth - origin, 0); }));

    const QRectF resting = leftAtRest.translated(origin, 0);
    m_panel->setFrame(resting.translated(112, 0));
    m_panel->orderFront();
    QVERIFY(waitFor([&] { return windowPixels() == leftPixelsAtRest.translated(origin + 224, 0); }));
    slide(resting, 0.1, Easing::out);
    QVERIFY(waitFor([&] { return windowPixels() == leftPixelsAtRest.translated(origin, 0); }));
    QVERIFY(waitFor([&] { return visiblePixels() == windowPixels(); }));
    QCOMPARE(m_panel->frame(), resting);
}

void X11PanelWindowTest::theSlideShowsNothingOnTheNeighbour()
{
    m_panel->setFrame(leftAtRest.translated(112, 0));
    m_panel->orderFront();
    bool isDone = false;
    m_panel->animateFrame(leftAtRest, 0.3, Easing::out, [&] { isDone = true; });
    int mostRight = 0;
    QVERIFY(waitFor([&] {
        const QRect visible = visiblePixels();
        if (!visible.isEmpty())
            mostRight = std::max(mostRight, visible.left() + visible.width());
        return isDone;
    }));
    QVERIFY(waitFor([&] { return windowPixels() == leftPixelsAtRest; }));
    QVERIFY2(mostRight > 0 && mostRight <= displayWidth, qPrintable(QString::number(mostRight)));
}

void X11PanelWindowTest::aPanelThatWasOnlyPutThereSlidesOutBehindItsEdge()
{
    m_panel->setFrame(leftAtRest);
    m_panel->orderFront();
    QVERIFY(waitFor([&] { return windowPixels() == leftPixelsAtRest; }));
    bool isDone = false;
    m_panel->animateFrame(leftAtRest.translated(112, 0), 0.3, Easing::in, [&] { isDone = true; });
    int mostRight = 0;
    QVERIFY(waitFor([&] {
        const QRect visible = visiblePixels();
        if (!visible.isEmpty())
            mostRight = std::max(mostRight, visible.left() + visible.width());
        return isDone;
    }));
    QVERIFY2(mostRight > 0 && mostRight <= displayWidth, qPrintable(QString::number(mostRight)));
}

void X11PanelWindowTest::theSlideTakesAsLongAsItIsTold_data()
{
    QTest::addColumn<bool>("startsSlowly");
    QTest::newRow("out") << false;
    QTest::newRow("in") << true;
}

// A busy machine skips steps, but the place at a time does not depend on them.
void X11PanelWindowTest::theSlideTakesAsLongAsItIsTold()
{
    QFETCH(bool, startsSlowly);
    constexpr double seconds = 0.18;
    constexpr double oneFrame = 0.05;
    m_panel->setFrame(leftAtRest.translated(112, 0));
    m_panel->orderFront();
    const auto samples = slide(leftAtRest, seconds, startsSlowly ? Easing::in : Easing::out);
    QVERIFY(!samples.empty());
    QVERIFY2(samples.back().time >= seconds, "the slide ended early");
    QCOMPARE(samples.back().share, 1.0);
    for (const Sample& sample : samples) {
        const double time = std::min(1.0, sample.time / seconds);
        const double later = std::max(0.0, (sample.time - oneFrame) / seconds);
        // A slow start stays behind an even pace, a slow end is ahead of it.
        if (startsSlowly)
            QVERIFY2(sample.share <= time + 0.001, qPrintable(QString::number(sample.share)));
        else if (later < 1)
            QVERIFY2(sample.share >= later - 0.001, qPrintable(QString::number(sample.share)));
    }
}

void X11PanelWindowTest::theSlideFollowsItsCurve_data()
{
    theSlideTakesAsLongAsItIsTold_data();
}

// So slow that a late step matters little, and an even pace is told from both curves.
void X11PanelWindowTest::theSlideFollowsItsCurve()
{
    QFETCH(bool, startsSlowly);
    constexpr double seconds = 2;
    constexpr double lateness = 0.1;
    constexpr double distance = 0.1;
    m_panel->setFrame(leftAtRest.translated(112, 0));
    m_panel->orderFront();
    const auto samples = slide(leftAtRest, seconds, startsSlowly ? Easing::in : Easing::out);
    int judged = 0;
    for (const Sample& sample : samples) {
        const double time = sample.time / seconds;
        if (time < 0.4 || time > 0.6)
            continue;
        ++judged;
        if (startsSlowly)
            QVERIFY2(sample.share < time - distance, qPrintable(QString::number(sample.share)));
        else
            QVERIFY2(sample.share > time + distance - lateness, qPrintable(QString::number(sample.share)));
    }
    QVERIFY(judged > 0);
}

void X11PanelWindowTest::aParkedPanelIsAPointBeyondAllDisplays()
{
    m_panel->setFrame(leftAtRest);
    m_panel->orderFront();
    QVERIFY(waitFor([&] { return windowPixels() == leftPixelsAtRest; }));
    m_panel->orderOut();
    QVERIFY(waitFor([this] { return isParked(); }));
}

// Only hiding the window makes the window manager give them to another one.
void X11PanelWindowTest::aParkedPanelGivesTheKeysBack()
{
    QVERIFY(m_window->isVisible());
    QFocusEvent came(QEvent::FocusIn);
    QCoreApplication::sendEvent(m_window.get(), &came);
    QVERIFY(!m_window->isVisible());
    QVERIFY(waitFor([this] { return m_window->isVisible() && isParked(); }));
}

std::vector<std::uint32_t> X11PanelWindowTest::numbers(QByteArrayView property) const
{
    xcb_connection_t* connection = m_connection.get();
    const auto atom = owned(xcb_intern_atom_reply(
        connection, xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(property.size()), property.data()),
        nullptr));
    const auto window = static_cast<xcb_window_t>(m_window->winId());
    const auto reply = owned(xcb_get_property_reply(
        connection, xcb_get_property(connection, 0, window, atom->atom, XCB_ATOM_CARDINAL, 0, 100), nullptr));
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return { first, first + xcb_get_property_value_length(reply.get()) / 4 };
}

void X11PanelWindowTest::spaceIsReservedAtTheDesktopsEdgeAlone()
{
    m_panel->setFrame(rightAtRest);
    m_panel->orderFront();
    m_panel->reserveSpace(rightAtRest);
    const std::vector<std::uint32_t> wanted{ 0, 224, 0, 0, 0, 0, 0, displayHeight - 1, 0, 0, 0, 0 };
    QVERIFY(waitFor([&] { return strut() == wanted; }));
    m_panel->reserveSpace(std::nullopt);
    QVERIFY(waitFor([&] { return strut().empty(); }));
    m_panel->reserveSpace(rightAtRest);
    QVERIFY(waitFor([&] { return strut() == wanted; }));
    m_panel->setFrame(leftAtRest);
    m_panel->reserveSpace(leftAtRest);
    QVERIFY(waitFor([&] { return strut().empty(); }));
}

void X11PanelWindowTest::thePanelMayUseTheSpaceThatItReserves()
{
    m_panel->setFrame(rightAtRest);
    m_panel->orderFront();
    m_panel->reserveSpace(rightAtRest);
    QVERIFY(waitFor([&] { return !strut().empty(); }));
    QCOMPARE(m_backend->displays().visibleFrame(rightDisplay), rightDisplay);
}

void X11PanelWindowTest::thePanelDescribesItsShadowWhileItIsShown()
{
    QVERIFY(shadow().empty());
    m_panel->setFrame(leftAtRest);
    m_panel->orderFront();
    QVERIFY(waitFor([this] { return !shadow().empty(); }));
    const std::vector<std::uint32_t> numbers = shadow();
    QCOMPARE(numbers.size(), std::size_t(12));
    const std::uint32_t extent = numbers[8];
    QVERIFY(extent > 12 * scale);
    QCOMPARE(numbers[9], 0U);
    QCOMPARE(numbers[10], extent);
    QCOMPARE(numbers[11], extent);
    // Above, upper right, right, lower right, below, lower left, left, upper left.
    const auto corner = static_cast<int>(extent + 12 * scale);
    const auto wide = static_cast<int>(extent);
    const std::vector<QSize> sizes{ { 8, wide }, { 8, wide },        { 1, 1 },    { 8, wide },
                                    { 8, wide }, { corner, corner }, { wide, 8 }, { corner, corner } };
    for (std::size_t part = 0; part < sizes.size(); ++part) {
        const auto geometry = owned(
            xcb_get_geometry_reply(m_connection.get(), xcb_get_geometry(m_connection.get(), numbers[part]), nullptr));
        QVERIFY(geometry);
        QCOMPARE(geometry->depth, std::uint8_t(32));
        QCOMPARE(QSize(geometry->width, geometry->height), sizes[part]);
    }
    m_panel->orderOut();
    QVERIFY(waitFor([this] { return isParked(); }));
    QVERIFY(shadow().empty());
}

// Nothing composes here.
void X11PanelWindowTest::theCornersAreCutAlongTheirCircle()
{
    m_panel->setFrame(leftAtRest);
    m_panel->orderFront();
    QVERIFY(waitFor([this] { return windowPixels() == leftPixelsAtRest; }));
    const auto window = static_cast<xcb_window_t>(m_window->winId());
    QRegion shape;
    const auto isCut = [&] {
        const auto reply = owned(xcb_shape_get_rectangles_reply(
            m_connection.get(), xcb_shape_get_rectangles(m_connection.get(), window, XCB_SHAPE_SK_BOUNDING), nullptr));
        const xcb_rectangle_t* rectangles = xcb_shape_get_rectangles_rectangles(reply.get());
        shape = QRegion();
        for (int index = 0; index < xcb_shape_get_rectangles_rectangles_length(reply.get()); ++index) {
            const xcb_rectangle_t& each = rectangles[index];
            shape += QRect(each.x, each.y, each.width, each.height);
        }
        return !shape.contains(QPoint(0, 0)) && shape.contains(QPoint(100, 0));
    };
    QVERIFY(waitFor(isCut));
    constexpr int radius = 24;
    for (int y = 0; y < radius; ++y) {
        for (int x = 0; x < radius; ++x) {
            const double distance = std::hypot(radius - x - 0.5, radius - y - 0.5);
            // Which way a pixel goes whose middle is on the circle does not matter.
            if (std::abs(distance - radius) < 0.5)
                continue;
            QCOMPARE(shape.contains(QPoint(x, y)), distance < radius);
            QCOMPARE(shape.contains(QPoint(x, leftPixelsAtRest.height() - 1 - y)), distance < radius);
        }
    }
}

void X11PanelWindowTest::theNeighbourStaysFreeWhenDisplaysComeAndGo()
{
    const QRectF halfOut = leftAtRest.translated(56, 0);
    const auto rightEdge = [this] {
        const QRect visible = visiblePixels();
        return visible.left() + visible.width();
    };
    const auto changeDisplays = [this](const QStringList& arguments, std::size_t count) {
        return m_desktop.start(QStringLiteral("xrandr"), arguments)->waitForExit() == 0
            && waitFor([&] { return m_backend->displays().frames().size() == count; });
    };
    int changes = 0;
    m_backend->onDisplaysChanged = [&] {
        ++changes;
        m_panel->setFrame(halfOut);
    };
    m_panel->setFrame(halfOut);
    m_panel->orderFront();
    QVERIFY(waitFor([&] { return rightEdge() == displayWidth; }));
    const QString geometry = QStringLiteral("%1/200x%2/150+%1+0").arg(displayWidth).arg(displayHeight);
    for (int round = 0; round < 2; ++round) {
        QVERIFY(changeDisplays({ QStringLiteral("--delmonitor"), QStringLiteral("right") }, 1));
        QVERIFY(changeDisplays(
            { QStringLiteral("--setmonitor"), QStringLiteral("right"), geometry, QStringLiteral("none") }, 2));
        QVERIFY(waitFor([&] { return rightEdge() == displayWidth; }));
        QVERIFY(holdsFor([&] { return rightEdge() == displayWidth; }, 200));
    }
    QVERIFY(changes >= 4);
}

int main(int argc, char* argv[])
{
    const auto desktop =
        PrivateDesktop::tryCreate({ QSize(2 * displayWidth, displayHeight), QStringLiteral("openbox"), true });
    if (!desktop)
        return EXIT_FAILURE;
    // A window manager that is starting forgets what is asked for.
    if (!waitFor([&] { return desktop->screen().rootHas("_NET_CLIENT_LIST"); }))
        return EXIT_FAILURE;
    const QString resources = desktop->home(QStringLiteral("resources"));
    desktop->writeFile(QStringLiteral("resources"), QByteArray("Xft.dpi: ") + QByteArray::number(96 * scale) + '\n');
    if (desktop->start(QStringLiteral("xrdb"), { QStringLiteral("-nocpp"), resources })->waitForExit() != 0)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    X11PanelWindowTest test(*desktop);
    return QTest::qExec(&test, argc, argv);
}
#include "X11PanelWindowTest.moc"
