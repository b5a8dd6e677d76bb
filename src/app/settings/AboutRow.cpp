#include "AboutRow.h"

#include "PlainLabel.h"
#include "ProgramVersion.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>

#include <utility>

namespace nookle {

AboutRow::AboutRow(std::function<void()> copyDiagnostics)
    : m_copyDiagnostics(std::move(copyDiagnostics))
    , m_button(new QPushButton)
{
    auto* version = makePlainLabel(tr("Version %1").arg(programVersion()));
    version->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_button->setToolTip(tr("Versions and services of this desktop, for a report. No names of files."));
    connect(m_button, &QPushButton::clicked, this, [this] {
        m_copyDiagnostics();
        m_button->setText(tr("Copied"));
    });

    auto* row = new QHBoxLayout(this);
    // The form above has its own margin there.
    row->setContentsMargins(style()->pixelMetric(QStyle::PM_LayoutLeftMargin), 0,
                            style()->pixelMetric(QStyle::PM_LayoutRightMargin),
                            style()->pixelMetric(QStyle::PM_LayoutBottomMargin));
    row->addWidget(version);
    row->addStretch();
    row->addWidget(m_button);
}

void AboutRow::showEvent(QShowEvent* event)
{
    m_button->setText(tr("Copy Diagnostics"));
    QWidget::showEvent(event);
}

} // namespace nookle
