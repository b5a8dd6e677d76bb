#include "EdgeStrip.h"

#include <LayerShellQt/Window>

#include <QScreen>

#include <algorithm>
#include <chrono>

namespace nookle {

namespace {

inline constexpr std::chrono::milliseconds timeAside{ 700 };

} // namespace

EdgeStrip::EdgeStrip(QScreen& screen, Level level)
{
    using Layer = LayerShellQt::Window;
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    setScreen(&screen);
    const QRect display = screen.geometry();
    setGeometry(display.right() + 1 - thickness, display.top(), thickness, display.height());
    auto* layer = Layer::get(this);
    layer->setScope(QStringLiteral("nookle"));
    layer->setLayer(level == Level::aboveAll ? Layer::LayerOverlay : Layer::LayerTop);
    layer->setAnchors(Layer::Anchors(Layer::AnchorRight) | Layer::AnchorTop | Layer::AnchorBottom);
    layer->setExclusiveZone(-1);
    layer->setKeyboardInteractivity(Layer::KeyboardInteractivityNone);
    m_aside.setSingleShot(true);
    m_aside.setInterval(timeAside);
    connect(&m_aside, &QTimer::timeout, this, &EdgeStrip::comeBack);
    show();
}

EdgeStrip::~EdgeStrip() = default;

// The compositor decides on the size; the strip lies at the right edge of its display in any case.
QPointF EdgeStrip::onDesktop(const QPointF& position) const
{
    const QRectF display = screen()->geometry();
    const double x = display.right() - std::clamp(width() - position.x(), 0.5, double(thickness));
    return { x, display.top() + std::clamp(position.y(), 0.0, display.height() - 1) };
}

// A compositor tells of the pointer only where it is, so its coming counts before it moves.
bool EdgeStrip::event(QEvent* event)
{
    if (event->type() == QEvent::Enter) {
        pointerCame();
        return true;
    }
    return StripWindow::event(event);
}

void EdgeStrip::pointerCame()
{
    if (m_aside.isActive())
        return;
    stepAside();
    StripWindow::pointerCame();
}

// An empty mask would mean the whole window, so a rectangle beyond it stands for nothing.
void EdgeStrip::stepAside()
{
    m_aside.start();
    setMask(QRect(-10, -10, 1, 1));
    update();
}

void EdgeStrip::comeBack()
{
    setMask({});
    update();
}

} // namespace nookle
