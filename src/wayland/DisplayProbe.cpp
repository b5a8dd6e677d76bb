#include "DisplayProbe.h"

#include <LayerShellQt/Window>

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

#include <wayland-client.h>

#include <chrono>
#include <utility>

namespace nookle {

namespace {

inline constexpr std::chrono::milliseconds longestSearch{ 300 };
/// The toolkit reads the compositor's choice before the end of its answers, but tells of it a turn or two later.
inline constexpr std::chrono::milliseconds timeToBeTold{ 20 };

} // namespace

void DisplayProbe::CallbackDeleter::operator()(wl_callback* callback) const
{
    wl_callback_destroy(callback);
}

DisplayProbe::DisplayProbe(Found found)
    : m_found(std::move(found))
{
    using Layer = LayerShellQt::Window;
    QSurfaceFormat format = requestedFormat();
    format.setAlphaBufferSize(8);
    setFormat(format);
    setFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::WindowTransparentForInput);
    resize(1, 1);
    auto* layer = Layer::get(this);
    layer->setScope(QStringLiteral("nookle"));
    // A window that is covered is on no display for some compositors.
    layer->setLayer(Layer::LayerOverlay);
    layer->setAnchors(Layer::AnchorNone);
    layer->setExclusiveZone(-1);
    layer->setKeyboardInteractivity(Layer::KeyboardInteractivityNone);
    layer->setScreenConfiguration(Layer::ScreenFromCompositor);
    m_limit.setSingleShot(true);
    m_limit.setInterval(longestSearch);
    connect(&m_limit, &QTimer::timeout, this, &DisplayProbe::answer);
    connect(this, &QWindow::screenChanged, this, &DisplayProbe::answer);
    m_limit.start();
    show();
}

DisplayProbe::~DisplayProbe() = default;

void DisplayProbe::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(0, 0, width(), height(), Qt::transparent);
    if (!m_end)
        QMetaObject::invokeMethod(this, &DisplayProbe::askForTheEnd, Qt::QueuedConnection);
}

void DisplayProbe::askForTheEnd()
{
    const auto* toolkit = qGuiApp->nativeInterface<QNativeInterface::QWaylandApplication>();
    if (m_end || !toolkit || !toolkit->display())
        return;
    static constexpr wl_callback_listener listener{ [](void* probe, wl_callback*, std::uint32_t) {
        static_cast<DisplayProbe*>(probe)->m_limit.start(timeToBeTold);
    } };
    m_end.reset(wl_display_sync(toolkit->display()));
    wl_callback_add_listener(m_end.get(), &listener, this);
    wl_display_flush(toolkit->display());
}

void DisplayProbe::answer()
{
    m_limit.stop();
    if (m_found && screen())
        std::exchange(m_found, nullptr)(*screen());
}

} // namespace nookle
