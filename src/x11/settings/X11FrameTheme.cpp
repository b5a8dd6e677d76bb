#include "X11FrameTheme.h"

#include <QGuiApplication>
#include <QPalette>
#include <QPlatformSurfaceEvent>
#include <QWindow>

#include <string_view>

#include <xcb/xcb.h>

namespace nookle {

namespace {

inline constexpr std::string_view dark = "dark";

[[nodiscard]] bool isDark()
{
    const QPalette colors = QGuiApplication::palette();
    return colors.color(QPalette::Window).lightness() < colors.color(QPalette::WindowText).lightness();
}

} // namespace

X11FrameTheme::X11FrameTheme(xcb_connection_t* connection)
    : m_connection(connection)
    , m_atoms(connection, { "UTF8_STRING", "_GTK_THEME_VARIANT" })
{
    QCoreApplication::instance()->installEventFilter(this);
    tellAll();
}

void X11FrameTheme::tellAll()
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (const QWindow* window : windows) {
        if (window->handle())
            tell(*window);
    }
}

void X11FrameTheme::tell(const QWindow& window)
{
    const auto number = static_cast<xcb_window_t>(window.winId());
    if (isDark())
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, number, m_atoms["_GTK_THEME_VARIANT"],
                            m_atoms["UTF8_STRING"], 8, dark.size(), dark.data());
    else
        xcb_delete_property(m_connection, number, m_atoms["_GTK_THEME_VARIANT"]);
    xcb_flush(m_connection);
}

bool X11FrameTheme::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange && watched == QCoreApplication::instance())
        tellAll();
    if (event->type() == QEvent::PlatformSurface
        && static_cast<const QPlatformSurfaceEvent*>(event)->surfaceEventType()
            == QPlatformSurfaceEvent::SurfaceCreated) {
        const auto* window = qobject_cast<const QWindow*>(watched);
        if (window && window->isTopLevel())
            tell(*window);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace nookle
