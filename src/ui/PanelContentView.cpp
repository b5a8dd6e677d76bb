#include "PanelContentView.h"

#include <QCloseEvent>
#include <QVBoxLayout>
#include <QWindow>

namespace nookle {

PanelContentView::PanelContentView()
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_AlwaysShowToolTips);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowTitle(QStringLiteral("Nookle"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    // The frame comes from outside, whatever the content would like.
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    resize(1, 1);
}

void PanelContentView::setContent(QWidget* content)
{
    layout()->addWidget(content);
}

QWindow& PanelContentView::panelWindow()
{
    winId();
    return *windowHandle();
}

// Only the panel's controller decides when the panel goes; a window manager's close button does not.
void PanelContentView::closeEvent(QCloseEvent* event)
{
    event->ignore();
}

} // namespace nookle
