#pragma once

#include "WaylandDesktop.h"

#include <QPoint>
#include <QString>

#include <memory>

namespace nookle::e2e {

class WebServer;

/// A real browser, as a native Wayland program, that shows the tests' own page.
class WaylandBrowser {
public:
    /// `name` is "firefox" or "chromium". `url` is a page that reports to the server. Returns once the page shows;
    /// null, with a warning, when it does not.
    [[nodiscard]] static std::unique_ptr<WaylandBrowser> tryOpen(const QString& name, const QString& url,
                                                                 WaylandDesktop& desktop, const WebServer& server);

    /// The place on the desktop of a point of the page.
    [[nodiscard]] QPoint at(const QPoint& point) const { return m_origin + point; }

private:
    WaylandBrowser() = default;

    std::unique_ptr<Program> m_program;
    QPoint m_origin;
};

} // namespace nookle::e2e
