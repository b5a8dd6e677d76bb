#pragma once

#include <QRasterWindow>
#include <QTimer>

#include <functional>
#include <memory>

struct wl_callback;

namespace nookle {

/// Finds out which display the user is at: an invisible window of one point, whose display the compositor chooses. It
/// takes no input, and is there for a few milliseconds. Main thread only.
class DisplayProbe final : public QRasterWindow {
    Q_OBJECT

public:
    using Found = std::function<void(QScreen& screen)>;

    /// Calls `found` once, later; with the toolkit's first screen when the compositor does not answer in time.
    explicit DisplayProbe(Found found);
    ~DisplayProbe() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Has the compositor tell when it has handled what was sent so far, and so has chosen the display.
    void askForTheEnd();
    void answer();

    struct CallbackDeleter {
        void operator()(wl_callback* callback) const;
    };

    Found m_found;
    std::unique_ptr<wl_callback, CallbackDeleter> m_end;
    QTimer m_limit;
};

} // namespace nookle
