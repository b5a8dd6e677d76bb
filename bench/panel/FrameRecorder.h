#pragma once

#include <QApplication>

#include <chrono>
#include <vector>

namespace nookle::bench {

/// A point in time, by the main thread's own clock, and the time that it had spent on a processor until then.
struct Moment {
    std::chrono::nanoseconds clock{};
    std::chrono::nanoseconds processor{};

    [[nodiscard]] static Moment now();
};

[[nodiscard]] double milliseconds(std::chrono::nanoseconds time);

/// An application that writes down what its widgets are asked to do.
class FrameRecorder final : public QApplication {
public:
    FrameRecorder(int& argc, char** argv);

    /// Times at which the painting of the shelf ended, once for all that was painted together.
    [[nodiscard]] const std::vector<Moment>& frames() const { return m_frames; }
    /// Times at which the panel's window was somewhere else.
    [[nodiscard]] const std::vector<Moment>& moves() const { return m_moves; }
    /// How often widgets were laid out or had their size changed.
    [[nodiscard]] int layouts() const { return m_layouts; }
    /// How long the main thread has handled events, by the clock.
    [[nodiscard]] std::chrono::nanoseconds busy() const { return m_busy; }

    /// Forgets what was written down.
    void clear();

    /// Runs the event loop until there are that many frames; false when they do not come.
    [[nodiscard]] bool waitForFrames(std::size_t count);
    /// Runs it for some time.
    void run(std::chrono::milliseconds time);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void record(const QObject& receiver, const QEvent& event);

    int m_depth = 0;
    bool m_isPainting = false;
    std::vector<Moment> m_frames;
    std::vector<Moment> m_moves;
    int m_layouts = 0;
    std::chrono::nanoseconds m_busy{};
};

} // namespace nookle::bench
