#include "EdgeStrip.h"

#include "SeenPointer.h"

#include <LayerShellQt/Window>

#include <QDropEvent>
#include <QPainter>
#include <QScreen>

#include <algorithm>
#include <chrono>

namespace nookle {

namespace {

inline constexpr int stripWidth = 3;
inline constexpr std::chrono::milliseconds timeAside{ 700 };

} // namespace

EdgeStrip::EdgeStrip(QScreen& screen, Level level, SeenPointer& pointer)
    : m_pointer(pointer)
{
    using Layer = LayerShellQt::Window;
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
    QSurfaceFormat transparent = format();
    transparent.setAlphaBufferSize(8);
    setFormat(transparent);
    setScreen(&screen);
    const QRect display = screen.geometry();
    setGeometry(display.right() + 1 - stripWidth, display.top(), stripWidth, display.height());
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
    const double x = display.right() - std::clamp(width() - position.x(), 0.5, double(stripWidth));
    return { x, display.top() + std::clamp(position.y(), 0.0, display.height() - 1) };
}

bool EdgeStrip::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::Enter:
    case QEvent::MouseMove:
        stepAside();
        return true;
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        handleDrag(static_cast<QDropEvent&>(*event));
        return true;
    case QEvent::DragLeave:
        m_pointer.leave();
        if (onDragLeft)
            onDragLeft();
        return true;
    default:
        return QRasterWindow::event(event);
    }
}

void EdgeStrip::handleDrag(QDropEvent& event)
{
    // A drag of this program has its source here.
    if (event.source()) {
        event.ignore();
        return;
    }
    const QPointF position = onDesktop(event.position());
    m_pointer.drag(position);
    if (event.type() == QEvent::DragEnter && onDragEntered)
        onDragEntered();
    if (onDragEvent)
        onDragEvent(event, position);
}

// An empty mask would mean the whole window, so a rectangle beyond it stands for nothing.
void EdgeStrip::stepAside()
{
    if (m_aside.isActive())
        return;
    m_aside.start();
    setMask(QRect(-10, -10, 1, 1));
    update();
    if (onPointerCame)
        onPointerCame();
}

void EdgeStrip::comeBack()
{
    setMask({});
    update();
}

void EdgeStrip::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
}

} // namespace nookle
