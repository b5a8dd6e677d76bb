#include "FittingScrollArea.h"

#include <QEvent>
#include <QScrollBar>

#include <algorithm>

namespace nookle {

FittingScrollArea::FittingScrollArea(QWidget* form)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    // The base class watches the form, too, which brings its events to `eventFilter`.
    setWidget(form);
}

void FittingScrollArea::setLargestSize(const QSize& size)
{
    m_largest = size;
    updateGeometry();
}

QSize FittingScrollArea::formSize(int width) const
{
    const QSize whole = widget()->sizeHint();
    if (whole.width() <= width)
        return whole;
    const int narrow = std::max(width, widget()->minimumSizeHint().width());
    return { narrow, widget()->heightForWidth(narrow) };
}

QSize FittingScrollArea::sizeHint() const
{
    QSize size = formSize(m_largest.width());
    // The bar takes its place beside the form, whose lines would break anew in a narrower one.
    if (size.height() > m_largest.height()) {
        const int bar = verticalScrollBar()->sizeHint().width();
        size = formSize(m_largest.width() - bar) + QSize(bar, 0);
    }
    if (size.width() > m_largest.width())
        size.rheight() += horizontalScrollBar()->sizeHint().height();
    return size.boundedTo(m_largest);
}

bool FittingScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        chooseBars();
    }
    return QScrollArea::eventFilter(watched, event);
}

void FittingScrollArea::resizeEvent(QResizeEvent* event)
{
    chooseBars();
    QScrollArea::resizeEvent(event);
}

// The base class keeps a bar once it has shown it, as it does before the window has its size: beside the bar more lines
// break, and the form is too high for good.
void FittingScrollArea::chooseBars()
{
    const int leastWidth = widget()->minimumSizeHint().width();
    const bool isTooWide = width() < leastWidth;
    const int below = isTooWide ? horizontalScrollBar()->sizeHint().height() : 0;
    const bool isScrolled = height() - below < formSize(width()).height();
    const int beside = isScrolled ? verticalScrollBar()->sizeHint().width() : 0;
    const bool isCut = width() - beside < leastWidth;
    setVerticalScrollBarPolicy(isScrolled ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
    setHorizontalScrollBarPolicy(isCut ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

} // namespace nookle
