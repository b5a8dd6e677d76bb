#pragma once

#include "FileDescriptor.h"

#include <functional>

struct _GSource;

namespace nookle {

/// Tells when the compositor is gone. A library of the desktop's look that the toolkit loads may be connected to it,
/// too, and ends the program then, without asking; this comes before. Main thread only.
class CompositorEnd final {
public:
    /// `onGone` is called at most once, from the event loop. Never, if there is no compositor now.
    explicit CompositorEnd(std::function<void()> onGone);
    ~CompositorEnd();
    CompositorEnd(const CompositorEnd&) = delete;
    CompositorEnd& operator=(const CompositorEnd&) = delete;

private:
    static int handleEnd(void* end);

    std::function<void()> m_onGone;
    /// A connection on which nothing is ever said.
    FileDescriptor m_connection;
    _GSource* m_source = nullptr;
};

} // namespace nookle
