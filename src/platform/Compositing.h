#pragma once

#include <QObject>

namespace nookle {

/// What lies behind the parts of a window that let something through.
enum class Backdrop {
    /// Nothing: windows hide what is below them, and every pixel must be filled.
    opaque,
    /// What is below the window, as it is.
    translucent,
    /// What is below the window, blurred.
    blurred,
};

/// Whether the desktop draws windows through one another. Main thread only.
class Compositing : public QObject {
    Q_OBJECT

public:
    [[nodiscard]] virtual Backdrop backdrop() const = 0;

Q_SIGNALS:
    void backdropChanged();
};

} // namespace nookle
