#include "LoginItemSection.h"

#include "DescriptionLabel.h"
#include "LaunchAtLogin.h"
#include "LoginItem.h"
#include "PlainLabel.h"
#include "PlainText.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace nookle {

namespace {

/// Readable on light and dark windows.
inline constexpr QColor errorColor(0xe0, 0x3c, 0x36);

[[nodiscard]] QLabel* makeErrorLabel()
{
    auto* label = makePlainLabel(QString());
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QPalette colors;
    colors.setColor(QPalette::WindowText, errorColor);
    label->setPalette(colors);
    return label;
}

} // namespace

LoginItemSection::LoginItemSection(LoginItem& item)
    : QGroupBox(tr("General"))
    , m_item(item)
    , m_launchAtLogin(new QCheckBox(tr("Open at login")))
    , m_approvalHint(new QWidget)
    , m_error(makeErrorLabel())
{
    auto* button = new QPushButton(tr("Open System Settings"));
    auto* hint = new DescriptionLabel(*button);
    hint->setDescription(tr("Allow Nookle under Login Items in System Settings."));
    connect(button, &QPushButton::clicked, this, [this] { m_item.openSystemSettings(); });
    auto* row = new QHBoxLayout(m_approvalHint);
    row->setContentsMargins({});
    row->addWidget(hint, 1);
    row->addWidget(button);

    auto* column = new QVBoxLayout(this);
    column->addWidget(m_launchAtLogin);
    column->addWidget(m_approvalHint);
    column->addWidget(m_error);

    const LoginItem::Status status = m_item.status();
    // At first a disabled item is shown as off. Once the user has switched it on here, it is shown as on.
    m_launchAtLogin->setChecked(status == LoginItem::Status::enabled);
    m_approvalHint->setVisible(status == LoginItem::Status::requiresApproval);
    m_error->hide();
    connect(m_launchAtLogin, &QCheckBox::toggled, this, &LoginItemSection::setLaunchAtLogin);
}

void LoginItemSection::setLaunchAtLogin(bool enabled)
{
    const bool isRegistered = m_item.status() == LoginItem::Status::enabled;
    if (enabled == isRegistered)
        return;
    const auto failure = LaunchAtLogin::setEnabled(m_item, enabled);
    showError(failure ? failure->description : QString());
    const LoginItem::Status status = m_item.status();
    m_launchAtLogin->setChecked(status == LoginItem::Status::enabled || status == LoginItem::Status::requiresApproval);
    m_approvalHint->setVisible(status == LoginItem::Status::requiresApproval);
}

void LoginItemSection::showError(const QString& text)
{
    m_error->setText(shownText(text));
    m_error->setVisible(!text.isEmpty());
}

} // namespace nookle
