#include "ShelfHeader.h"

#include "DragAllButton.h"
#include "PinButton.h"

#include <QHBoxLayout>

namespace nookle {

namespace {

inline constexpr int padding = 6;
inline constexpr int gap = 2;

} // namespace

ShelfHeader::ShelfHeader(PanelPinning& pinning, QWidget* parent)
    : QWidget(parent)
    , m_dragAll(new DragAllButton(this))
{
    auto* pin = new PinButton(pinning, this);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(padding, padding, padding, 0);
    layout->setSpacing(gap);
    layout->addStretch();
    layout->addWidget(m_dragAll);
    layout->addWidget(pin);
    connect(pin, &PinButton::clicked, this, [this] { onTogglePin(); });
    connect(m_dragAll, &DragAllButton::clicked, this, [this] { onSelectAll(); });
    m_dragAll->onDrag = [this] { onDragAll(*m_dragAll); };
    setItemCount(0);
}

void ShelfHeader::setItemCount(qsizetype count)
{
    m_dragAll->setVisible(count > 1);
}

} // namespace nookle
