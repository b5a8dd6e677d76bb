#include "DraggedImages.h"

#include <algorithm>
#include <utility>

namespace nookle {

DraggedImages::DraggedImages(DraggedImage::Services services)
    : m_services(services)
{
}

void DraggedImages::begin(const ShelfItem& item)
{
    forgetThoseThatAreDone();
    end();
    // If the image was moved already, this copies it back for the new drag.
    for (const auto& each : m_watched) {
        if (each->id() == item.id)
            each->lookNow();
    }
    forgetThoseThatAreDone();
    const auto known =
        std::find_if(m_watched.begin(), m_watched.end(), [&](const auto& each) { return each->id() == item.id; });
    if (known == m_watched.end()) {
        m_current = std::make_unique<DraggedImage>(m_services, item);
        return;
    }
    m_current = std::move(*known);
    m_watched.erase(known);
}

void DraggedImages::keepLooking(std::function<void()> onTrashed)
{
    if (!m_current)
        return;
    m_current->keepLooking(std::move(onTrashed));
    end();
}

void DraggedImages::end()
{
    if (m_current && m_current->isLooking())
        m_watched.push_back(std::move(m_current));
    m_current.reset();
}

void DraggedImages::lookNow()
{
    if (m_current)
        m_current->lookNow();
    for (const auto& each : m_watched)
        each->lookNow();
    forgetThoseThatAreDone();
}

void DraggedImages::forgetThoseThatAreDone()
{
    std::erase_if(m_watched, [](const auto& each) { return each->isDone(); });
}

} // namespace nookle
