#pragma once

#include "WaylandDesktop.h"

#include <QImage>
#include <QPoint>
#include <QString>

#include <memory>
#include <optional>

namespace nookle::e2e {

/// The file manager of GNOME. Its window fills the screen.
class Nautilus {
public:
    /// Starts it and returns once it shows the icons of two files in that folder; null, with a warning, when it does
    /// not. Newer versions let root wait for seven seconds.
    [[nodiscard]] static std::unique_ptr<Nautilus> tryOpen(const WaylandDesktop& desktop, const QString& folder);

    /// Within the icons of the first and of the second file.
    [[nodiscard]] QPoint firstIcon() const { return m_first; }
    [[nodiscard]] QPoint secondIcon() const { return m_second; }

    /// Whether the first file, a folder, shows that it would take what is dragged over it.
    [[nodiscard]] bool firstTakesDrop(const WaylandDesktop& desktop) const;

private:
    Nautilus() = default;
    [[nodiscard]] bool findIcons(const WaylandDesktop& desktop);

    std::unique_ptr<Program> m_program;
    /// The part of the window that has the first files, with nothing dragged over it.
    QImage m_view;
    QPoint m_first;
    QPoint m_second;
};

} // namespace nookle::e2e
