#include "ScrollFade.h"

#include "Compositing.h"
#include "PanelBackground.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace nookle {

namespace {

inline constexpr int fadeHeight = 24;

} // namespace

ScrollFade::ScrollFade(QWidget& panel, const QAbstractScrollArea& list, Edge edge, const Compositing& compositing)
    : QWidget(&panel)
    , m_list(list)
    , m_edge(edge)
    , m_compositing(compositing)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    const QScrollBar* bar = list.verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, &ScrollFade::follow);
    connect(bar, &QScrollBar::rangeChanged, this, &ScrollFade::follow);
    m_list.viewport()->installEventFilter(this);
    follow();
}

int ScrollFade::hiddenHeight() const
{
    const QScrollBar& bar = *m_list.verticalScrollBar();
    return m_edge == Edge::top ? bar.value() - bar.minimum() : bar.maximum() - bar.value();
}

void ScrollFade::follow()
{
    const bool isNeeded = m_list.isVisibleTo(parentWidget()) && hiddenHeight() > 0;
    setVisible(isNeeded);
    if (!isNeeded)
        return;
    QRect strip = m_list.geometry();
    if (m_edge == Edge::top)
        strip.setHeight(fadeHeight);
    else
        strip.setTop(strip.bottom() + 1 - fadeHeight);
    setGeometry(strip);
    update();
}

bool ScrollFade::eventFilter(QObject* watched, QEvent* event)
{
    const auto type = event->type();
    if (type == QEvent::Resize || type == QEvent::Show || type == QEvent::Hide)
        follow();
    return QWidget::eventFilter(watched, event);
}

// The less is hidden the weaker the fade, so that it comes and goes with the movement.
void ScrollFade::paintEvent(QPaintEvent* /*event*/)
{
    const double strength = std::clamp(static_cast<double>(hiddenHeight()) / fadeHeight, 0.0, 1.0);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF panel(-pos(), parentWidget()->size());
    const QLineF direction = m_edge == Edge::top ? QLineF(0, 0, 0, height()) : QLineF(0, height(), 0, 0);
    paintFade(painter, panel, direction, strength, palette(), m_compositing.backdrop());
}

} // namespace nookle
