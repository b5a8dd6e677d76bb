#pragma once

#include <QTimer>

#include <functional>
#include <memory>

class QWindow;

namespace nookle {

/// Asks the compositor where the pointer is. Some compositors do not tell it after a drag before the pointer moves, but
/// all look anew when a window comes or goes: so one comes, which is not seen and takes no input. The answer is the
/// usual one, that the pointer has entered a window. Main thread only.
class PointerQuestion final {
public:
    /// `onSilence` is called when the compositor has said nothing for a while.
    explicit PointerQuestion(std::function<void()> onSilence);
    ~PointerQuestion();
    PointerQuestion(const PointerQuestion&) = delete;
    PointerQuestion& operator=(const PointerQuestion&) = delete;

    /// Asks on the display of `window`.
    void ask(const QWindow& window);

    /// Call this when the pointer is known, or when it does not matter any more.
    void end();

private:
    QTimer m_limit;
    std::unique_ptr<QWindow> m_invisible;
};

} // namespace nookle
