#pragma once

#include "PrivateDesktop.h"

#include <QImage>
#include <QPoint>
#include <QString>

#include <memory>
#include <optional>

namespace nookle::e2e {

/// A real browser that shows one page and nothing else. The page has to begin with a corner in `marker()`, by which its
/// place on the screen is found.
class Browser {
public:
    /// The style of an element that marks the page's upper left corner.
    [[nodiscard]] static QByteArray marker();
    /// Where the marked corner is in a picture of a screen.
    [[nodiscard]] static std::optional<QPoint> findMarker(const QImage& picture);

    /// Returns once the page shows; null, with a warning, when it does not.
    [[nodiscard]] static std::unique_ptr<Browser> tryOpen(PrivateDesktop& desktop, const QString& url);

    /// The place on the screen of a point of the page.
    [[nodiscard]] QPoint at(const QPoint& point) const { return m_origin + point; }

private:
    Browser() = default;

    std::unique_ptr<Program> m_program;
    QPoint m_origin;
};

} // namespace nookle::e2e
