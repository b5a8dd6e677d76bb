#pragma once

#include "PrivateDesktop.h"

#include <QPoint>
#include <QRect>

#include <memory>
#include <optional>

namespace nookle::e2e {

/// A real file manager that shows one folder, in a window at a known place.
class FileManager {
public:
    /// Opens `folder`, which holds a single file, at the left of the screen; null, with a warning, when the file does
    /// not come into view.
    [[nodiscard]] static std::unique_ptr<FileManager> tryOpen(PrivateDesktop& desktop, const QString& folder);

    /// A place on the file's icon.
    [[nodiscard]] QPoint icon() const { return m_icon; }

    /// Draws a frame around everything in the folder, and waits until the file manager has taken that over.
    [[nodiscard]] bool selectAll(XScreen& screen) const;

    /// A place in the window where there is no file.
    [[nodiscard]] QPoint emptyPlace() const { return m_window.frame.bottomRight() - QPoint(60, 90); }

private:
    FileManager() = default;

    /// A place inside the first thing that is drawn in the white of the folder's view.
    [[nodiscard]] static std::optional<QPoint> findIcon(XScreen& screen, const QRect& window);

    std::unique_ptr<Program> m_program;
    XWindow m_window;
    QPoint m_icon;
};

} // namespace nookle::e2e
