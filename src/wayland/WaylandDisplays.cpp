#include "WaylandDisplays.h"

#include "DisplayProbe.h"

#include <QScreen>

#include <utility>

namespace nookle {

WaylandDisplays::WaylandDisplays() = default;
WaylandDisplays::~WaylandDisplays() = default;

void WaylandDisplays::findActive(Found found) const
{
    if (frames().size() < 2) {
        found(mainFrame());
        return;
    }
    m_probe.reset(new DisplayProbe([this, found = std::move(found)](const QScreen& screen) {
        m_probe->hide();
        m_probe.reset();
        found(QRectF(screen.geometry()));
    }));
}

} // namespace nookle
