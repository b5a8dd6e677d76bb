#pragma once

#include "WaylandDesktop.h"

#include <QPoint>
#include <QString>

#include <memory>

namespace nookle::e2e {

class WebServer;

/// A real browser, as a native Wayland program or an X11 program, that shows one page. The page has to begin with a
/// corner in `Browser::marker()`.
class WaylandBrowser {
public:
    enum class Kind { waylandProgram, x11Program };

    /// `name` is "firefox" or "chromium". Returns once the page shows; null, with a warning, when it does not.
    [[nodiscard]] static std::unique_ptr<WaylandBrowser> tryOpen(const QString& name, Kind kind, const QString& url,
                                                                 WaylandDesktop& desktop);

    /// Whether the page of `browserPage` is told of the pointer, which comes last of all.
    [[nodiscard]] bool hearsPointer(Hand& hand, const WebServer& server) const;

    /// The place on the desktop of a point of the page.
    [[nodiscard]] QPoint at(const QPoint& point) const { return m_origin + point; }

private:
    WaylandBrowser() = default;

    std::unique_ptr<Program> m_program;
    QPoint m_origin;
};

} // namespace nookle::e2e
