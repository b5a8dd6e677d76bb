#include "PointerQuestion.h"

#include <LayerShellQt/Window>

#include <QPainter>
#include <QRasterWindow>

#include <chrono>
#include <utility>

namespace nookle {

namespace {

/// A compositor that answers does so within a few milliseconds.
inline constexpr std::chrono::milliseconds timeToAnswer{ 1500 };

/// One transparent point below all windows.
class InvisibleWindow final : public QRasterWindow {
public:
    explicit InvisibleWindow(QScreen* screen);

protected:
    void paintEvent(QPaintEvent* event) override;
};

InvisibleWindow::InvisibleWindow(QScreen* screen)
{
    QSurfaceFormat transparent = format();
    transparent.setAlphaBufferSize(8);
    setFormat(transparent);
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowTransparentForInput | Qt::WindowDoesNotAcceptFocus);
    setScreen(screen);
    resize(1, 1);
    using Layer = LayerShellQt::Window;
    auto* layer = Layer::get(this);
    layer->setScope(QStringLiteral("nookle"));
    layer->setLayer(Layer::LayerBackground);
    layer->setAnchors(Layer::Anchors(Layer::AnchorRight) | Layer::AnchorTop);
    layer->setExclusiveZone(-1);
    layer->setKeyboardInteractivity(Layer::KeyboardInteractivityNone);
}

void InvisibleWindow::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(QRect(QPoint(), size()), Qt::transparent);
}

} // namespace

PointerQuestion::PointerQuestion(std::function<void()> onSilence)
{
    m_limit.setSingleShot(true);
    m_limit.setInterval(timeToAnswer);
    QObject::connect(&m_limit, &QTimer::timeout, &m_limit, [this, tell = std::move(onSilence)] {
        end();
        tell();
    });
}

PointerQuestion::~PointerQuestion() = default;

void PointerQuestion::ask(const QWindow& window)
{
    m_limit.start();
    m_invisible = std::make_unique<InvisibleWindow>(window.screen());
    m_invisible->show();
}

void PointerQuestion::end()
{
    m_limit.stop();
    m_invisible.reset();
}

} // namespace nookle
