#pragma once

#include "RegularFile.h"

#include <QByteArray>

#include <vector>

namespace nookle {

/// The thumbnails that all programs of the desktop share. They are PNG files in one folder for each size, named by a
/// hash of the shown file's address.
class ThumbnailCache final {
public:
    /// `folder` holds the folders of all sizes. For files below `temporaryFolder` no thumbnail is saved.
    ThumbnailCache(QByteArray folder, QByteArray temporaryFolder);

    /// The address of the file at the absolute `path`, in the form that all programs use for thumbnails.
    [[nodiscard]] static QByteArray uri(const QByteArray& path);

    /// The side of the smallest thumbnail size with at least `side` pixels; 0 when no size is that large.
    [[nodiscard]] static int savedSide(int side);

    /// The standard name of the size with `savedSide` pixels.
    [[nodiscard]] static QByteArray sizeName(int savedSide);

    /// The saved thumbnails of `uri` in all sizes of at least `side` pixels, the smallest first. They are not checked:
    /// they may be outdated, or not even images.
    [[nodiscard]] std::vector<RegularFile> open(const QByteArray& uri, int side) const;

    /// Whether a thumbnail of the file at `path` may be saved here.
    [[nodiscard]] bool takes(const QByteArray& path) const;

    /// Saves a thumbnail of `uri` on another thread. After a failure there is none, and the next request
    /// for the file makes it again.
    void save(const QByteArray& uri, int savedSide, const QByteArray& png) const;

private:
    [[nodiscard]] QByteArray sizeFolder(int savedSide) const;
    [[nodiscard]] static QByteArray fileName(const QByteArray& uri);

    QByteArray m_folder;
    QByteArray m_temporaryFolder;
};

} // namespace nookle
