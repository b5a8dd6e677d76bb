#pragma once

#include <QUuid>

#include <optional>

namespace nookle {

class TileList;

/// The tile under the pointer, which is highlighted.
class TileHover final {
public:
    /// `tiles` must outlive this object.
    explicit TileHover(TileList& tiles);

    [[nodiscard]] const std::optional<QUuid>& id() const { return m_id; }

    /// Whether the tile of the item `id` is highlighted.
    [[nodiscard]] bool shows(const QUuid& id) const { return !m_isSuspended && m_id == id; }

    /// The pointer has entered a tile (true) or left it. The exit of one tile may be reported after the entry into the
    /// next.
    void change(const QUuid& id, bool isInside);

    /// The pointer is over no tile.
    void clear() { set(std::nullopt); }

    /// While it is suspended, nothing is highlighted.
    void setSuspended(bool isSuspended);

private:
    void set(const std::optional<QUuid>& id);
    void update(const std::optional<QUuid>& id);

    TileList& m_tiles;
    std::optional<QUuid> m_id;
    bool m_isSuspended = false;
};

} // namespace nookle
