#pragma once

#include <QGroupBox>

class QCheckBox;
class QLabel;

namespace nookle {

class LoginItem;

/// The part of the settings about opening at login: the switch, the hint that the desktop has it switched off, and what
/// went wrong. Shows the state that was read when it was made, and from then on what its own switch brings about. Main
/// thread only.
class LoginItemSection final : public QGroupBox {
    Q_OBJECT

public:
    /// `item` must outlive this.
    explicit LoginItemSection(LoginItem& item);

private:
    void setLaunchAtLogin(bool enabled);
    void showError(const QString& text);

    LoginItem& m_item;
    QCheckBox* m_launchAtLogin;
    QWidget* m_approvalHint;
    QLabel* m_error;
};

} // namespace nookle
