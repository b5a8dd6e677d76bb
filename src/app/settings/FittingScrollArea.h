#pragma once

#include <QScrollArea>

namespace nookle {

/// Shows a form in its full size as long as that is not too high or too wide. Of one that is too high it shows as much
/// as fits, with a scroll bar beside it. One that is too wide gets narrower, with more lines, as long as its controls
/// have room, and else a scroll bar below it. Main thread only.
class FittingScrollArea final : public QScrollArea {
    Q_OBJECT

public:
    /// Takes ownership of `form`.
    explicit FittingScrollArea(QWidget* form);

    void setLargestSize(const QSize& size);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void chooseBars();
    /// The size of the form where it has that width, or the least width of its controls.
    [[nodiscard]] QSize formSize(int width) const;

    QSize m_largest{ QWIDGETSIZE_MAX, QWIDGETSIZE_MAX };
};

} // namespace nookle
