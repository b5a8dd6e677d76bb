#pragma once

#include "StripWindow.h"

#include <QTimer>

namespace nookle {

/// The strip of one display. When the pointer comes without a drag, it steps aside for a moment: it takes no input, so
/// that a click there reaches the window below. Main thread only.
class EdgeStrip final : public StripWindow {
    Q_OBJECT

public:
    enum class Level {
        /// Below windows that fill the whole screen, which then keep the display for themselves.
        belowFullScreen,
        /// Above all windows.
        aboveAll,
    };

    /// `screen` is the display's.
    EdgeStrip(QScreen& screen, Level level);
    ~EdgeStrip() override;

    /// Takes no input for a moment.
    void stepAside();

protected:
    bool event(QEvent* event) override;
    [[nodiscard]] QPointF onDesktop(const QPointF& position) const override;
    void pointerCame() override;

private:
    void comeBack();

    QTimer m_aside;
};

} // namespace nookle
