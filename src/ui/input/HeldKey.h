#pragma once

#include <QtGlobal>

class QKeyEvent;

namespace nookle {

/// Tells the presses of a key from the repeats of a held one. The toolkit marks repeats, but on X11 under load it
/// misses some. The X server sends such a repeat as a release and a press of the same time. Main thread only.
class HeldKey final {
public:
    /// Call it for each release.
    void release(const QKeyEvent& event);

    [[nodiscard]] bool isRepeat(const QKeyEvent& press) const;

private:
    quint32 m_released = 0;
    quint64 m_releasedAt = 0;
};

} // namespace nookle
