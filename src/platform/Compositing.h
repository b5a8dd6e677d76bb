#pragma once

#include <QObject>

namespace nookle {

/// What shows through the transparent parts of a window.
enum class Backdrop {
    /// Nothing. The window must fill every pixel.
    opaque,
    /// The screen content below the window, unchanged.
    translucent,
    /// The screen content below the window, blurred.
    blurred,
};

/// Tells whether the desktop supports transparent windows. Main thread only.
class Compositing : public QObject {
    Q_OBJECT

public:
    [[nodiscard]] virtual Backdrop backdrop() const = 0;

Q_SIGNALS:
    void backdropChanged();
};

} // namespace nookle
