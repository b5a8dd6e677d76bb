#pragma once

#include "WaylandDesktop.h"

#include <QPoint>
#include <QString>

#include <memory>

namespace nookle::e2e {

/// A window of Firefox, as a program of the Wayland session. The page has to begin with a corner in
/// `Browser::marker()`.
class Firefox {
public:
    /// Returns once the page shows; null, with a warning, when it does not.
    [[nodiscard]] static std::unique_ptr<Firefox> tryOpen(const WaylandDesktop& desktop, const QString& url);

    /// The place on the screen of a point of the page.
    [[nodiscard]] QPoint at(const QPoint& point) const { return m_origin + point; }

private:
    Firefox() = default;

    std::unique_ptr<Program> m_program;
    QPoint m_origin;
};

} // namespace nookle::e2e
