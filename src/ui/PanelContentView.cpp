#include "PanelContentView.h"

#include <QCloseEvent>
#include <QResizeEvent>
#include <QWindow>

namespace nookle {

PanelContentView::PanelContentView()
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_AlwaysShowToolTips);
    setAttribute(Qt::WA_TranslucentBackground);
    setWindowTitle(QStringLiteral("Nookle"));
    resize(1, 1);
}

void PanelContentView::setContent(QWidget* content)
{
    m_content = content;
    content->setParent(this);
    content->hide();
}

void PanelContentView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (!m_content)
        return;
    const bool isSeen = width() > 1;
    if (isSeen)
        m_content->setGeometry(rect());
    m_content->setVisible(isSeen);
}

QWindow& PanelContentView::panelWindow()
{
    winId();
    return *windowHandle();
}

// Only the panel's controller hides the panel. A request of the window manager to close it is ignored.
void PanelContentView::closeEvent(QCloseEvent* event)
{
    event->ignore();
}

} // namespace nookle
