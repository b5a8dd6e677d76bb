#pragma once

#include <QScrollArea>

namespace nookle {

/// Shows a form in its full size as long as that is not too high, and else as much as fits, with a scroll bar beside
/// it. Main thread only.
class FittingScrollArea final : public QScrollArea {
    Q_OBJECT

public:
    /// Takes ownership of `form`.
    explicit FittingScrollArea(QWidget* form);

    void setLargestHeight(int height);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void chooseBar();

    int m_largestHeight = QWIDGETSIZE_MAX;
};

} // namespace nookle
