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

void FittingScrollArea::setLargestHeight(int height)
{
    m_largestHeight = height;
    updateGeometry();
}

QSize FittingScrollArea::sizeHint() const
{
    const QSize form = widget()->sizeHint();
    // The bar takes its place beside the form, whose lines would break anew in a narrower one.
    const bool isScrolled = form.height() > m_largestHeight;
    const int bar = isScrolled ? verticalScrollBar()->sizeHint().width() : 0;
    return { form.width() + bar, std::min(form.height(), m_largestHeight) };
}

bool FittingScrollArea::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        chooseBar();
    }
    return QScrollArea::eventFilter(watched, event);
}

void FittingScrollArea::resizeEvent(QResizeEvent* event)
{
    chooseBar();
    QScrollArea::resizeEvent(event);
}

// The base class keeps a bar once it has shown it, as it does before the window has its size: beside the bar more lines
// break, and the form is too high for good.
void FittingScrollArea::chooseBar()
{
    const bool isScrolled = height() < widget()->sizeHint().height();
    setVerticalScrollBarPolicy(isScrolled ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff);
}

} // namespace nookle
