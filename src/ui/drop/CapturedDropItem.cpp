#include "CapturedDropItem.h"

#include <utility>

namespace nookle {

CapturedDropItem::CapturedDropItem(std::optional<DroppedAddress> address, std::optional<DroppedImage> image)
    : m_address(std::move(address))
    , m_image(std::move(image))
{
}

CapturedDropItem::CapturedDropItem(QString text)
    : m_text(std::move(text))
{
}

std::optional<QString> CapturedDropItem::loadURL() const
{
    return m_address ? std::optional(m_address->url) : std::nullopt;
}

std::optional<QUrl> CapturedDropItem::loadImageCopy() const
{
    return m_image ? writeImageCopy(*m_image) : std::nullopt;
}

std::optional<QString> CapturedDropItem::loadURLTitle() const
{
    return m_address ? m_address->title : std::nullopt;
}

} // namespace nookle
