#pragma once

#include "Thumbnails.h"

#include <QIcon>
#include <QPixmap>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>

class QPainter;
class QRect;

namespace nookle {

/// The preview of a file on disk: the icon of its kind at once, and a thumbnail as soon as there is one.
class Thumbnail final {
public:
    /// `thumbnails` must outlive the preview; `onChanged` is called when the thumbnail has come.
    Thumbnail(Thumbnails& thumbnails, std::function<void()> onChanged);

    /// Shows the file or folder at `url`; nothing shows nothing. The same file keeps its thumbnail.
    void setUrl(const std::optional<QUrl>& url, bool isFolder = false);

    /// Asks for the thumbnail, once for each file and scale. Called when the preview is about to be seen.
    void load(double displayScale);

    /// As large as fits into `box`, centred, in the shape of the picture.
    void paint(QPainter& painter, const QRect& box) const;

    /// Null until the thumbnail has come.
    [[nodiscard]] const QPixmap& picture() const { return m_thumbnail; }

private:
    void paintIcon(QPainter& painter, const QRect& box) const;

    Thumbnails& m_thumbnails;
    std::function<void()> m_onChanged;
    std::optional<QUrl> m_url;
    bool m_isFolder = false;
    std::optional<double> m_requestedScale;
    QIcon m_icon;
    QPixmap m_thumbnail;
    std::unique_ptr<Cancellable> m_request;
};

} // namespace nookle
