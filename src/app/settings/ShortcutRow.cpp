#include "ShortcutRow.h"

#include "DescriptionLabel.h"
#include "GlobalShortcuts.h"
#include "PlainLabel.h"
#include "PlainText.h"
#include "PlainToolTip.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace nookle {

namespace {

/// In points. The tool tip has the whole text.
inline constexpr int widestKeys = 280;

} // namespace

ShortcutRow::ShortcutRow(GlobalShortcuts& shortcuts)
    : m_shortcuts(shortcuts)
    , m_keys(makePlainLabel(QString()))
    , m_obstacle(new DescriptionLabel(*m_keys))
    , m_ask(new QPushButton(tr("Ask Again")))
{
    // It may hold a command that the user is to copy.
    m_obstacle->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto* value = new QHBoxLayout;
    value->addWidget(makePlainLabel(tr("Show and hide")));
    value->addStretch();
    value->addWidget(m_keys);
    auto* reason = new QHBoxLayout;
    reason->addWidget(m_obstacle, 1);
    reason->addWidget(m_ask, 0, Qt::AlignTop);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins({});
    column->addLayout(value);
    column->addLayout(reason);

    connect(m_ask, &QPushButton::clicked, this, [this] { m_shortcuts.askAgain(); });
    connect(&m_shortcuts, &GlobalShortcuts::changed, this, &ShortcutRow::showState);
    showState();
}

void ShortcutRow::showState()
{
    showKeys();
    const QString obstacle = m_shortcuts.obstacle();
    m_obstacle->setDescription(obstacle);
    // A command in it is copied as it stands: without invisible characters for line breaks.
    m_obstacle->setText(obstacle);
    m_obstacle->setVisible(!obstacle.isEmpty());
    m_ask->setVisible(m_shortcuts.canAskAgain());
}

void ShortcutRow::showKeys()
{
    const QString bound = m_shortcuts.boundKeys();
    const QString wanted = m_shortcuts.wantedKeys();
    const bool isOnlyWanted = bound.isEmpty() && !wanted.isEmpty();
    const QString keys = shownText(isOnlyWanted ? tr("Wanted: %1").arg(wanted) : bound);
    const QString text = keys.isEmpty() ? tr("⌃⌥⌘D") : keys;
    m_keys->setText(m_keys->fontMetrics().elidedText(text, Qt::ElideRight, widestKeys));
    m_keys->setAccessibleName(keys.isEmpty() ? tr("Control, Alt, Super and D") : keys);
    setPlainToolTip(*m_keys, m_keys->accessibleName());
}

} // namespace nookle
