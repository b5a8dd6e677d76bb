#pragma once

#include "CompositorConnection.h"
#include "Hand.h"

#include <QElapsedTimer>

#include <memory>

namespace nookle::e2e {

/// A mouse and a keyboard that exist only for the compositor, of which those that are built on wlroots make any number.
class WlrootsHand final : public Hand {
public:
    /// Null when the compositor makes none.
    [[nodiscard]] static std::unique_ptr<Hand> tryTake(const QByteArray& socketPath, const QPoint& desktop);
    ~WlrootsHand() override;

    void setDesktop(const QPoint& desktop) override { m_desktop = desktop; }

protected:
    void placePointer(const QPoint& point) override;
    void pushButton(Button button, bool isDown) override;
    void pushKey(Key key, bool isDown) override;
    void scroll(double points, int notches) override;

private:
    WlrootsHand(std::unique_ptr<CompositorConnection> connection, const QPoint& desktop);
    [[nodiscard]] bool makeDevices();
    [[nodiscard]] bool sendKeymap();
    void endFrame();
    [[nodiscard]] std::uint32_t time() const { return static_cast<std::uint32_t>(m_clock.elapsed()); }

    std::unique_ptr<CompositorConnection> m_connection;
    QPoint m_desktop;
    QElapsedTimer m_clock;
    wl_proxy* m_mouse = nullptr;
    wl_proxy* m_keyboard = nullptr;
};

} // namespace nookle::e2e
