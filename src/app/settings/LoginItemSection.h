#pragma once

#include <QGroupBox>

class QCheckBox;
class QLabel;

namespace nookle {

class LoginItem;

/// The part of the settings about starting at login: the switch, the hint that the desktop has disabled it, and an
/// error message. Shows the state at the time of its construction, and then the results of its own switch. Main thread
/// only.
class LoginItemSection final : public QGroupBox {
    Q_OBJECT

public:
    /// `item` must outlive this object.
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
