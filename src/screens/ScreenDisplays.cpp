#include "ScreenDisplays.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>

namespace nookle {

namespace {

/// While there is no display, the toolkit may have a screen of no size, or none.
[[nodiscard]] bool isDisplay(const QScreen* screen)
{
    return screen && !screen->geometry().isEmpty();
}

} // namespace

ScreenDisplays::ScreenDisplays()
{
    for (QScreen* screen : QGuiApplication::screens())
        watch(*screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
        watch(*screen);
        changed();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &ScreenDisplays::changed);
}

void ScreenDisplays::watch(QScreen& screen)
{
    connect(&screen, &QScreen::geometryChanged, this, &ScreenDisplays::changed);
    connect(&screen, &QScreen::virtualGeometryChanged, this, &ScreenDisplays::changed);
}

void ScreenDisplays::changed()
{
    if (onChanged)
        onChanged();
}

QScreen* ScreenDisplays::screenOf(const QRectF& frame)
{
    const auto screens = QGuiApplication::screens();
    const auto found = std::find_if(screens.begin(), screens.end(),
                                    [&](const QScreen* screen) { return QRectF(screen->geometry()) == frame; });
    return found == screens.end() ? nullptr : *found;
}

std::vector<QRectF> ScreenDisplays::frames() const
{
    std::vector<QRectF> found;
    for (const QScreen* screen : QGuiApplication::screens()) {
        if (isDisplay(screen))
            found.emplace_back(screen->geometry());
    }
    return found;
}

std::optional<QRectF> ScreenDisplays::mainFrame() const
{
    const QScreen* screen = QGuiApplication::primaryScreen();
    return isDisplay(screen) ? std::optional(QRectF(screen->geometry())) : std::nullopt;
}

QString ScreenDisplays::identity(const QRectF& frame) const
{
    const QScreen* screen = screenOf(frame);
    return screen ? screen->name() : QString();
}

} // namespace nookle
