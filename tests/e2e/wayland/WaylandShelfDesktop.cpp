#include "WaylandShelfDesktop.h"

#include "Waiting.h"

#include <QFile>
#include <QUrl>

namespace nookle::e2e {

namespace {

inline constexpr int panelWidth = 112;
/// How far the panel's shadow reaches.
inline constexpr int shadowWidth = 24;
/// A row of the panel where it shows nothing, and no test has its pointer.
inline constexpr int emptyRow = 600;

[[nodiscard]] bool isPlain(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != picture.pixel(0, 0))
                return false;
        }
    }
    return !picture.isNull();
}

} // namespace

WaylandDesktop::Compositor WaylandShelfDesktop::compositor()
{
    const QString name = qEnvironmentVariable("NOOKLE_ENVIRONMENT");
    if (name == QLatin1String("kwin"))
        return WaylandDesktop::Compositor::kwin;
    if (name == QLatin1String("kwin_with_x11"))
        return WaylandDesktop::Compositor::kwinWithX11;
    if (name == QLatin1String("labwc_with_x11"))
        return WaylandDesktop::Compositor::labwcWithX11;
    if (name == QLatin1String("kwin_in_window"))
        return WaylandDesktop::Compositor::kwinInWindow;
    if (name == QLatin1String("kwin_in_window_with_x11"))
        return WaylandDesktop::Compositor::kwinInWindowWithX11;
    if (name == QLatin1String("gnome"))
        return WaylandDesktop::Compositor::gnome;
    return name == QLatin1String("labwc") ? WaylandDesktop::Compositor::labwc : WaylandDesktop::Compositor::sway;
}

bool WaylandShelfDesktop::announcesDrags()
{
    switch (compositor()) {
    case WaylandDesktop::Compositor::kwinWithX11:
    case WaylandDesktop::Compositor::labwcWithX11:
    case WaylandDesktop::Compositor::gnome:
        return true;
    default:
        return false;
    }
}

bool WaylandShelfDesktop::setUpDesktop(WaylandDesktop::Compositor compositor, int displays)
{
    WaylandDesktop::Options options;
    options.compositor = compositor;
    options.displays = displays;
    return setUpDesktop(options);
}

bool WaylandShelfDesktop::setUpDesktop(const WaylandDesktop::Options& options)
{
    m_desktop = WaylandDesktop::tryCreate(options);
    if (!m_desktop)
        return false;
    m_desktop->writeFile(QStringLiteral("files/note one.txt"), "words");
    m_desktop->setVariable(QStringLiteral("XDG_SESSION_TYPE"), QStringLiteral("wayland"));
    // For the other programs. GTK is drawn by the processor: there is nothing else.
    m_desktop->setVariable(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("wayland"));
    m_desktop->setVariable(QStringLiteral("GDK_BACKEND"), QStringLiteral("wayland"));
    m_desktop->setVariable(QStringLiteral("GSK_RENDERER"), QStringLiteral("cairo"));
    m_shelf = std::make_unique<ShelfProgram>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
    return true;
}

void WaylandShelfDesktop::tearDownDesktop()
{
    m_peer.reset();
    m_shelf.reset();
    m_desktop.reset();
}

void WaylandShelfDesktop::tellFailure(const QString& picture)
{
    if (!m_desktop)
        return;
    m_desktop->picture(QRect(QPoint(), WaylandDesktop::displaySize)).save(picture);
    qInfo("the screen at the end: %s\nthe log: %s\nthe other program: %s", qPrintable(picture),
          m_shelf->log().constData(), m_peer ? m_peer->output().constData() : "");
}

void WaylandShelfDesktop::keepPicture(const QString& name) const
{
    const QString folder = qEnvironmentVariable("NOOKLE_PICTURES");
    if (!folder.isEmpty())
        m_desktop->picture(QRect(QPoint(), WaylandDesktop::displaySize)).save(folder + QLatin1Char('/') + name);
}

bool WaylandShelfDesktop::startShelf()
{
    m_shelf->launch();
    return m_desktop
               ->start(QStringLiteral("gdbus"),
                       { QStringLiteral("wait"), QStringLiteral("--session"), QStringLiteral("--timeout"),
                         QStringLiteral("15"), QStringLiteral("org.nookle.Nookle") })
               ->waitForExit()
        == 0;
}

bool WaylandShelfDesktop::showShelf()
{
    return m_shelf->startAgain() == 0 && waitFor([this] { return isPanelOut(); });
}

bool WaylandShelfDesktop::callShelf(const QStringList& method) const
{
    const QString call = QStringLiteral("call --session -d org.nookle.Nookle -o /org/nookle/Nookle -m");
    return m_desktop->start(QStringLiteral("gdbus"), call.split(QLatin1Char(' ')) + method)->waitForExit() == 0;
}

bool WaylandShelfDesktop::activate(const QString& action) const
{
    return callShelf({ QStringLiteral("org.freedesktop.Application.ActivateAction"), action, QStringLiteral("[]"),
                       QStringLiteral("{}") });
}

QByteArray WaylandShelfDesktop::content(const char* path) const
{
    QFile file(home(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray WaylandShelfDesktop::fileList() const
{
    return QUrl::fromLocalFile(home("files/note one.txt")).toEncoded() + "\r\n";
}

bool WaylandShelfDesktop::openPeer(const QStringList& arguments)
{
    return openProgram(qEnvironmentVariable("NOOKLE_PEER"), arguments);
}

bool WaylandShelfDesktop::openProgram(const QString& path, const QStringList& arguments)
{
    m_peer.reset();
    m_peer = m_desktop->start(path, arguments);
    return waitFor([this] {
        hand().moveTo(middle + QPoint(1, 0));
        hand().moveTo(middle);
        return timesSaid("entered") > 0;
    });
}

void WaylandShelfDesktop::runPeersOnX11()
{
    m_desktop->setVariable(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    m_desktop->setVariable(QStringLiteral("GDK_BACKEND"), QStringLiteral("x11"));
}

void WaylandShelfDesktop::openGtkTarget(const QString& kind)
{
    m_peer.reset();
    m_peer =
        m_desktop->start(qEnvironmentVariable("NOOKLE_GTK_TARGET"), { QStringLiteral("4"), kind, home("received") });
}

qsizetype WaylandShelfDesktop::timesSaid(const QByteArray& line)
{
    return m_peer->output().split('\n').count(line);
}

bool WaylandShelfDesktop::peerSays(const QByteArray& line, qsizetype times)
{
    return waitFor([&] { return timesSaid(line) > times; });
}

bool WaylandShelfDesktop::beginDrag(const QStringList& peerArguments)
{
    return openPeer(peerArguments) && beginDragOfPeer();
}

bool WaylandShelfDesktop::openGtkSource()
{
    return openProgram(qEnvironmentVariable("NOOKLE_GTK_SOURCE"), { home("files/note one.txt"), home("result") });
}

bool WaylandShelfDesktop::beginDragFromGtk()
{
    return openGtkSource() && beginDragOfPeer();
}

bool WaylandShelfDesktop::beginDragOfPeer()
{
    const qsizetype pressed = timesSaid("pressed");
    const qsizetype draggedOver = timesSaid("dragged over");
    // A window that has just come may not be ready for the first press.
    const bool isPressed = waitFor([&] {
        hand().press();
        if (waitFor([&] { return timesSaid("pressed") > pressed; }, 1000))
            return true;
        hand().release();
        return false;
    });
    if (!isPressed)
        return false;
    // From here the hand's steps to the next display do not end at the edge between the two.
    hand().moveTo(middle + QPoint(41, 0));
    // Some compositors tell of a drag only with the next movement.
    return waitFor([&] {
        hand().tremble();
        return timesSaid("dragged over") > draggedOver;
    });
}

bool WaylandShelfDesktop::beginDrag(const QByteArray& payload, const QString& type)
{
    m_desktop->writeFile(QStringLiteral("offered"), payload);
    return beginDrag({ QStringLiteral("offer"), home("offered"), type, home("result") });
}

bool WaylandShelfDesktop::dragToEdge(int edge)
{
    const qsizetype before = timesSaid("taken");
    hand().moveTo(QPoint(edge - 1, middle.y()));
    return isTaken(before) && (m_desktop->tellsSources() || waitFor([&] { return isPanelOut(edge); }));
}

bool WaylandShelfDesktop::isTaken(qsizetype times)
{
    // What lies at the edge only during drags may come below a pointer that is there already. Some compositors tell of
    // the drag only with the next movement then.
    return !m_desktop->tellsSources() || waitFor([&] {
        if (announcesDrags())
            hand().tremble();
        return timesSaid("taken") > times;
    });
}

bool WaylandShelfDesktop::putOnShelf(const QByteArray& payload, const QString& type)
{
    if (!beginDrag(payload, type) || !dragToEdge())
        return false;
    hand().release();
    return waitFor([this] { return m_shelf->savedItems().size() == 1; });
}

bool WaylandShelfDesktop::dragToPeer(const QPoint& from)
{
    hand().moveTo(from);
    hand().press();
    hand().moveTo(middle);
    // A source tells of the next movement when it has heard whether the drop would be taken.
    constexpr qsizetype enough = 3;
    const bool isOver = waitFor([this] {
        hand().moveTo(middle + QPoint(12, 0));
        hand().moveTo(middle);
        return content("received.over").size() >= enough;
    });
    hand().release();
    return isOver;
}

bool WaylandShelfDesktop::isPanelOut(int edge) const
{
    if (!m_desktop->hasPictures())
        return true;
    // Its left edge is not straight to the pixel, and its shadow comes before it.
    constexpr int border = 6;
    const QImage row = m_desktop->picture(QRect(edge - panelWidth - border, emptyRow, panelWidth, 1));
    return !row.isNull() && row.pixel(0, 0) != row.pixel(2 * border, 0)
        && row.pixel(2 * border, 0) == row.pixel(row.width() - 1, 0);
}

bool WaylandShelfDesktop::isPanelGone(int edge) const
{
    return !m_desktop->hasPictures()
        || isPlain(m_desktop->picture(QRect(edge - panelWidth - shadowWidth, emptyRow, panelWidth + shadowWidth, 1)));
}

bool WaylandShelfDesktop::isDropTarget() const
{
    // A frame of two pixels stands along the edge of the panel then, and else a line of one.
    constexpr int depth = 10;
    const QPoint edge(WaylandDesktop::displaySize.width() - panelWidth, emptyRow);
    const QImage picture = m_desktop->picture(QRect(edge, QSize(depth, 1)));
    return !picture.isNull() && picture.pixel(1, 0) != picture.pixel(depth - 1, 0);
}

bool WaylandShelfDesktop::isMenuOpen() const
{
    constexpr int width = 60;
    const QRect beside(WaylandDesktop::displaySize.width() - panelWidth - shadowWidth - width, 100, width, 100);
    return !isPlain(m_desktop->picture(beside));
}

} // namespace nookle::e2e
