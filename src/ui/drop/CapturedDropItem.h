#pragma once

#include "DropAddresses.h"
#include "DropItem.h"
#include "ImageCopy.h"

namespace nookle {

/// A dropped element whose bytes have been read.
class CapturedDropItem final : public DropItem {
public:
    /// A file, a link, or an image that may have an address.
    explicit CapturedDropItem(std::optional<DroppedAddress> address, std::optional<DroppedImage> image = {});
    /// A text.
    explicit CapturedDropItem(QString text);

    [[nodiscard]] bool hasFileURL() const override { return m_address && m_address->isFile(); }
    [[nodiscard]] bool hasImage() const override { return m_image.has_value(); }
    [[nodiscard]] bool hasURL() const override { return m_address.has_value(); }
    [[nodiscard]] bool hasText() const override { return m_text.has_value(); }

    [[nodiscard]] std::optional<QString> loadURL() const override;
    [[nodiscard]] std::optional<QUrl> loadImageCopy() const override;
    [[nodiscard]] std::optional<QString> loadURLTitle() const override;
    [[nodiscard]] std::optional<QString> loadText() const override { return m_text; }

private:
    std::optional<DroppedAddress> m_address;
    std::optional<DroppedImage> m_image;
    std::optional<QString> m_text;
};

} // namespace nookle
