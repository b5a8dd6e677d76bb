#pragma once

#include <QtGlobal>

class QKeyEvent;

namespace nookle {

/// Tells the presses of a key from the repeats of a held one. Hand it all presses and releases in their order. Main
/// thread only.
class HeldKey final {
public:
    /// Who repeats a held key.
    enum class Repeats {
        /// The toolkit, which marks each repeat and gives it the time of the press.
        byToolkit,
        /// The X server, which sends a release and a press of the same time. The toolkit misses the marks of some, and
        /// marks quick taps that look the same.
        byServer,
    };

    explicit HeldKey(Repeats repeats = ofThisProgram());

    void release(const QKeyEvent& event);

    [[nodiscard]] bool isRepeat(const QKeyEvent& press);

private:
    [[nodiscard]] static Repeats ofThisProgram();
    [[nodiscard]] bool looksRepeated(const QKeyEvent& press) const;
    [[nodiscard]] bool isTap(const QKeyEvent& press) const;

    Repeats m_repeats;
    quint32 m_released = 0;
    quint64 m_releasedAt = 0;
    /// The last press that was no repeat.
    quint32 m_pressed = 0;
    quint64 m_pressedAt = 0;
};

} // namespace nookle
