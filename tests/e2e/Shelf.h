#pragma once

#include "PrivateDesktop.h"
#include "ShelfProgram.h"

#include <QPoint>
#include <QString>
#include <QStringList>

#include <optional>

namespace nookle::e2e {

/// The program under test on a private desktop.
class Shelf : public ShelfProgram {
public:
    /// Nothing runs before `start`.
    Shelf(PrivateDesktop& desktop, QString program);

    /// Starts it, and returns once it has started wholly.
    [[nodiscard]] bool start(const QStringList& arguments = {});

    /// The panel while it is on the screen.
    [[nodiscard]] std::optional<XWindow> panel() const;

    /// Whether the panel has come to rest with its right edge there.
    [[nodiscard]] bool isAtRest(int rightEdge) const;

    /// Whether it shows that it would take what is being dragged over it.
    [[nodiscard]] bool isDropTarget() const;

    /// The middle of the preview of the first tile.
    [[nodiscard]] QPoint firstTile() const;

private:
    PrivateDesktop& m_desktop;
};

} // namespace nookle::e2e
