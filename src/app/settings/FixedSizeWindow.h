#pragma once

#include <QDialog>

namespace nookle {

/// A window whose size is fixed by its layout. Main thread only.
class FixedSizeWindow final : public QDialog {
    Q_OBJECT

public:
    explicit FixedSizeWindow(Qt::WindowFlags flags);

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int m_requests = 0;
};

} // namespace nookle
