#pragma once

#include <QObject>

#include <memory>

class QWidget;

namespace nookle {

class Cancellable;
class MainQueue;

/// Forgets the pictures of icons when the widget that shows them has been hidden for half a minute. By itself the
/// toolkit forgets them a few at a time, and wakes the program up for each time.
class IconPictureRest final : public QObject {
public:
    inline static constexpr double timeToKeep = 30;

    /// A child of the widget.
    IconPictureRest(QWidget& shown, MainQueue& queue);
    ~IconPictureRest() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    MainQueue& m_queue;
    std::unique_ptr<Cancellable> m_forgetting;
};

} // namespace nookle
