#pragma once

#include <QByteArray>

#include <cstdint>
#include <memory>

#include <wayland-client.h>

namespace nookle::e2e {

/// A connection of a test's own to a compositor.
class CompositorConnection {
public:
    /// Null when no compositor listens on that socket.
    [[nodiscard]] static std::unique_ptr<CompositorConnection> tryConnect(const QByteArray& socketPath);
    ~CompositorConnection();
    CompositorConnection(const CompositorConnection&) = delete;
    CompositorConnection& operator=(const CompositorConnection&) = delete;

    /// One of the things that the compositor offers; null when it does not.
    [[nodiscard]] wl_proxy* bind(const wl_interface& interface, std::uint32_t version);

    /// Returns once the compositor has handled everything so far.
    void flush();

private:
    explicit CompositorConnection(wl_display* display);

    wl_display* m_display;
};

} // namespace nookle::e2e
