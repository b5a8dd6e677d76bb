#pragma once

#include <QPointer>
#include <QVariantAnimation>

#include <vector>

namespace nookle {

class ShelfItemView;

/// Lets tiles come, go and change their places by a short movement, all of a change together. Runs only meanwhile.
class TileMotion final {
public:
    /// Where a tile is, and how much of it is there.
    struct Place {
        int y = 0;
        double presence = 0;
    };

    TileMotion();
    ~TileMotion();
    TileMotion(const TileMotion&) = delete;
    TileMotion& operator=(const TileMotion&) = delete;

    /// Ends a movement where it is, so that the next one can go on from there. Only the tiles that leave stay on their
    /// way, which begins anew.
    void interrupt();

    /// The tile, which is at its place, comes there from `from`.
    void come(ShelfItemView& tile, const Place& from);

    /// The tile fades out on its way to the height `y`, and is deleted then. It gets no more events of the mouse.
    void leave(ShelfItemView& tile, int y);

    /// Begins the movement of the tiles that come and leave.
    void start();

    /// Ends a movement: all tiles are where they belong.
    void finish();

    [[nodiscard]] bool isRunning() const { return m_animation.state() == QAbstractAnimation::Running; }

private:
    struct Way {
        QPointer<ShelfItemView> tile;
        Place from;
        Place to;
    };

    void advance(double share);
    void done();

    std::vector<Way> m_ways;
    QVariantAnimation m_animation;
};

} // namespace nookle
