#include "FixedSizeWindow.h"

#include <QResizeEvent>

namespace nookle {

namespace {

inline constexpr int mostRequests = 3;

} // namespace

FixedSizeWindow::FixedSizeWindow(Qt::WindowFlags flags)
    : QDialog(nullptr, flags)
{
}

void FixedSizeWindow::showEvent(QShowEvent* event)
{
    m_requests = 0;
    QDialog::showEvent(event);
}

// Where a Wayland compositor leaves the frame to its programs, the toolkit learns of that only after it has told how
// large the window is, and then takes the room for the frame from the content. The compositor may answer with that size
// once more while it gives the window the focus. One that decides on the size itself would do so for ever.
void FixedSizeWindow::resizeEvent(QResizeEvent* event)
{
    QDialog::resizeEvent(event);
    const bool isCut = event->size() != event->size().expandedTo(minimumSize());
    if (!isCut || m_requests == mostRequests)
        return;
    ++m_requests;
    QMetaObject::invokeMethod(
        this, [this] { resize(minimumSize()); }, Qt::QueuedConnection);
}

} // namespace nookle
