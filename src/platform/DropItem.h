#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace nookle {

/// One dropped element: a file, an image, a link or a text. The loaders answer with nothing when the source did not
/// deliver. Main thread only.
class DropItem {
public:
    virtual ~DropItem() = default;

    [[nodiscard]] virtual bool hasFileURL() const = 0;
    [[nodiscard]] virtual bool hasImage() const = 0;
    [[nodiscard]] virtual bool hasURL() const = 0;
    [[nodiscard]] virtual bool hasText() const = 0;

    /// The element's address exactly as the source wrote it: of a file, or of a page.
    [[nodiscard]] virtual std::optional<QString> loadURL() const = 0;

    /// A private copy of the element's image, alone in a folder of its own; both are the caller's.
    [[nodiscard]] virtual std::optional<QUrl> loadImageCopy() const = 0;

    /// The title that came with a link, never empty.
    [[nodiscard]] virtual std::optional<QString> loadURLTitle() const = 0;

    [[nodiscard]] virtual std::optional<QString> loadText() const = 0;
};

} // namespace nookle
