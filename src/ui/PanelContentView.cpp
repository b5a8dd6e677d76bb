#include "PanelContentView.h"

#include <QApplication>
#include <QCloseEvent>
#include <QPaintEvent>
#include <QPainter>
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
    // The window gets the keys before the widget in it that has the focus.
    panelWindow().installEventFilter(this);
}

void PanelContentView::setContent(QWidget* content)
{
    m_content = content;
    content->setParent(this);
    content->hide();
    layOutContent();
}

void PanelContentView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    layOutContent();
}

void PanelContentView::layOutContent()
{
    if (!m_content)
        return;
    const bool isSeen = width() > 1 && !isOutOfSight();
    if (isSeen)
        m_content->setGeometry(rect());
    m_content->setVisible(isSeen);
    // The desktop may give a window the keys before it has its size, and with it the content that takes them.
    const QWidget* holder = QApplication::focusWidget();
    if (isSeen && isActiveWindow() && (!holder || holder == this))
        m_content->setFocus(Qt::ActiveWindowFocusReason);
}

void PanelContentView::setContentOffset(double offset)
{
    const bool wasOutOfSight = isOutOfSight();
    m_offset = offset;
    if (isOutOfSight() != wasOutOfSight)
        layOutContent();
    // The picture of a content that was out of sight would be out of date.
    if (offset > 0 && !isOutOfSight())
        beginSliding();
    else
        endSliding();
    update();
}

// A window that is shown for its content to slide in must not show it at rest before.
void PanelContentView::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (m_offset > 0)
        beginSliding();
}

void PanelContentView::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    endSliding();
}

void PanelContentView::beginSliding()
{
    if (!m_picture.isNull() || !m_content || !isVisible() || isOutOfSight())
        return;
    m_picture = QPixmap(m_content->size() * devicePixelRatioF());
    m_picture.setDevicePixelRatio(devicePixelRatioF());
    m_picture.fill(Qt::transparent);
    // Without a background, which the corners do not have.
    m_content->render(&m_picture, {}, {}, QWidget::DrawChildren);
    m_content->setUpdatesEnabled(false);
}

void PanelContentView::endSliding()
{
    m_picture = QPixmap();
    if (m_content)
        m_content->setUpdatesEnabled(true);
}

// On Wayland the toolkit does not clear a new buffer that it has copied the last picture to, and the panel's colour is
// partly transparent.
void PanelContentView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(event->rect(), Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (!m_picture.isNull())
        painter.drawPixmap(QPointF(m_offset, 0), m_picture);
}

void PanelContentView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange)
        onFocusChanged(isActiveWindow());
}

bool PanelContentView::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ContextMenu:
        return !m_takesKeys;
    default:
        return QWidget::eventFilter(watched, event);
    }
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
