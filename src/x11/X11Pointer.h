#pragma once

#include "Pointer.h"

#include <cstdint>

struct xcb_connection_t;

namespace nookle {

/// The core pointer. Queries the server at every call.
class X11Pointer final : public Pointer {
public:
    /// `connection` must outlive this object.
    X11Pointer(xcb_connection_t* connection, std::uint32_t root);

    [[nodiscard]] QPointF position() const override;
    [[nodiscard]] bool isLeftButtonDown() const override;

private:
    xcb_connection_t* m_connection;
    std::uint32_t m_root;
};

} // namespace nookle
