#pragma once

#include <functional>
#include <memory>

namespace nookle {

class Cancellable;
class MainQueue;
class TrayHost;

/// Waits until the desktop has a tray. The toolkit chooses the kind of tray when the first icon is shown, and never
/// changes it. So a desktop that is still starting gets five seconds to provide the kind that draws icons itself and
/// follows the theme. After that an embedding tray is accepted too. Main thread only.
class TrayFinder final {
public:
    /// `notifier` draws icons and menus itself; `embedding` shows a window of the program, and is null on display
    /// servers that cannot do that. All must outlive this object.
    TrayFinder(TrayHost& notifier, TrayHost* embedding, MainQueue& queue);
    ~TrayFinder();
    TrayFinder(const TrayFinder&) = delete;
    TrayFinder& operator=(const TrayFinder&) = delete;

    /// Begins to wait. Without a tray, writes one log line. A tray that starts later is still used.
    void start();

    /// Called once when a tray was found, possibly within `start`. Set by the owner.
    std::function<void()> onFound = [] {};

private:
    [[nodiscard]] bool hasEmbeddingTray() const;
    void look();
    void waitForBetter();
    void settle();
    void found();

    TrayHost& m_notifier;
    TrayHost* m_embedding;
    MainQueue& m_queue;
    std::unique_ptr<Cancellable> m_grace;
    bool m_hasSaidNone = false;
    bool m_hasFound = false;
};

} // namespace nookle
