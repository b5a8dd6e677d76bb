#pragma once

#include "Displays.h"

#include <QObject>

#include <functional>

class QScreen;

namespace nookle {

/// The toolkit's screens. A display server's own class says which part of each is usable. Main thread only.
class ScreenDisplays : public QObject, public Displays {
    Q_OBJECT

public:
    /// The application object must exist, and outlive this one.
    ScreenDisplays();

    [[nodiscard]] std::vector<QRectF> frames() const override;
    [[nodiscard]] std::optional<QRectF> mainFrame() const override;
    /// The name of the display's monitor.
    [[nodiscard]] QString identity(const QRectF& frame) const override;

    /// The screen with that full frame; null when there is none.
    [[nodiscard]] static QScreen* screenOf(const QRectF& frame);

    /// Called when a display was added, removed or changed. Set by the owner.
    std::function<void()> onChanged;

private:
    void watch(QScreen& screen);
    void changed();
};

} // namespace nookle
