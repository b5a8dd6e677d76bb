#include "DraggedImages.h"

#include <utility>

namespace nookle {

DraggedImages::DraggedImages(DraggedImage::Services services)
    : m_services(services)
{
}

void DraggedImages::begin(const ShelfItem& item)
{
    forgetThoseThatAreDone();
    // If the image was moved already, this copies it back for the new drag.
    for (const auto& each : m_watched) {
        if (each->id() == item.id)
            each->lookNow();
    }
    m_current = std::make_unique<DraggedImage>(m_services, item);
}

void DraggedImages::keepLooking(std::function<void()> onTrashed)
{
    if (!m_current || m_current->isDone())
        return;
    std::erase_if(m_watched, [this](const auto& each) { return each->id() == m_current->id(); });
    m_current->keepLooking(std::move(onTrashed));
    m_watched.push_back(std::move(m_current));
}

void DraggedImages::lookNow()
{
    for (const auto& each : m_watched)
        each->lookNow();
    forgetThoseThatAreDone();
}

void DraggedImages::forgetThoseThatAreDone()
{
    std::erase_if(m_watched, [](const auto& each) { return each->isDone(); });
}

} // namespace nookle
