#pragma once

#include <functional>
#include <memory>

namespace nookle {

class Cancellable;
class MainQueue;
class TrayHost;

/// Waits until the desktop shows the icons of programs. The toolkit settles for one kind of tray with its first icon
/// and stays with it, so a desktop that is still starting gets time to bring the kind that follows its theme before an
/// embedding tray is taken. Main thread only.
class TrayFinder final {
public:
    /// `notifier` draws icons and menus itself; `embedding` shows a window of the program. Both must outlive this.
    TrayFinder(TrayHost& notifier, TrayHost& embedding, MainQueue& queue);
    ~TrayFinder();
    TrayFinder(const TrayFinder&) = delete;
    TrayFinder& operator=(const TrayFinder&) = delete;

    /// Begins to wait. A desktop that shows no icons is said so in one log line, and may begin to at any time.
    void start();

    /// A tray is there for the icon. Called once, perhaps from within `start`. Set by the owner.
    std::function<void()> onFound = [] {};

private:
    void look();
    void waitForBetter();
    void settle();
    void found();

    TrayHost& m_notifier;
    TrayHost& m_embedding;
    MainQueue& m_queue;
    std::unique_ptr<Cancellable> m_grace;
    bool m_hasSaidNone = false;
    bool m_hasFound = false;
};

} // namespace nookle
