#pragma once

#include <functional>

struct wl_display;

namespace nookle {

/// Tells when the compositor is gone. The toolkit ends the program then, without asking; this comes before. Main thread
/// only.
class CompositorWatch final {
public:
    /// `onGone` is called at most once, from the event loop.
    explicit CompositorWatch(std::function<void()> onGone);
    ~CompositorWatch();
    CompositorWatch(const CompositorWatch&) = delete;
    CompositorWatch& operator=(const CompositorWatch&) = delete;

private:
    static int handleEnd(int descriptor, unsigned condition, void* watch);

    std::function<void()> m_onGone;
    wl_display* m_connection;
    unsigned m_source = 0;
};

} // namespace nookle
