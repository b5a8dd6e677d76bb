#pragma once

#include "ThumbnailGenerator.h"

#include <QIcon>
#include <QPixmap>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

class QPainter;
class QRect;

namespace nookle {

/// The sides of a preview, in points.
inline constexpr int previewSize = 52;

/// The preview of a file on disk: first the icon of its type, then a thumbnail as soon as there is one.
class Thumbnail final {
public:
    /// `thumbnails` must outlive the preview. `onChanged` is called when the thumbnail has arrived.
    Thumbnail(ThumbnailGenerator& thumbnails, std::function<void()> onChanged);

    /// Shows the file or folder at `url`, or nothing if there is none. If the file is the same as before, the thumbnail
    /// is kept.
    void setUrl(const std::optional<QUrl>& url, bool isFolder = false);

    /// Requests the thumbnail, once for each file and scale. Call it when the preview is about to be shown.
    void load(double displayScale);

    /// Paints the preview centred in `box`, as large as fits, with the picture's aspect ratio.
    void paint(QPainter& painter, const QRect& box) const;

    /// The thumbnail; null until it has arrived.
    [[nodiscard]] const QPixmap& picture() const { return m_thumbnail; }

private:
    void paintIcon(QPainter& painter, const QRect& box) const;

    ThumbnailGenerator& m_thumbnails;
    std::function<void()> m_onChanged;
    std::optional<QUrl> m_url;
    bool m_isFolder = false;
    std::optional<double> m_requestedScale;
    QIcon m_icon;
    QPixmap m_thumbnail;
    std::unique_ptr<Cancellable> m_request;
};

} // namespace nookle
