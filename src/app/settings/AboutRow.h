#pragma once

#include <QWidget>

#include <functional>

class QPushButton;

namespace nookle {

/// The last row of the settings window: the version of the program, and a button that copies what a report of a problem
/// should hold. Main thread only.
class AboutRow final : public QWidget {
    Q_OBJECT

public:
    /// `copyDiagnostics` puts the report on the clipboard.
    explicit AboutRow(std::function<void()> copyDiagnostics);

protected:
    void showEvent(QShowEvent* event) override;

private:
    std::function<void()> m_copyDiagnostics;
    QPushButton* m_button;
};

} // namespace nookle
