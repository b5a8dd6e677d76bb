#pragma once

#include "CompositorConnection.h"
#include "Hand.h"

#include <memory>

namespace nookle::e2e {

/// Input that KWin takes from programs.
class KWinHand final : public Hand {
public:
    /// Null when the compositor takes none.
    [[nodiscard]] static std::unique_ptr<Hand> tryTake(const QByteArray& socketPath);
    ~KWinHand() override;

protected:
    void placePointer(const QPoint& point) override;
    void pushButton(Button button, bool isDown) override;
    void pushKey(Key key, bool isDown) override;
    void scroll(double points, int notches) override;

private:
    KWinHand(std::unique_ptr<CompositorConnection> connection, wl_proxy* input);

    std::unique_ptr<CompositorConnection> m_connection;
    wl_proxy* m_input;
};

} // namespace nookle::e2e
