#pragma once

#include "RegularFile.h"

#include <QByteArray>

#include <vector>

namespace nookle {

/// The thumbnails that all programs of the desktop share: PNG files named after the address of the file they show, in a
/// folder for each size.
class ThumbnailCache final {
public:
    /// `folder` holds the folders of all sizes. Files below `temporaryFolder` get no thumbnail there.
    ThumbnailCache(QByteArray folder, QByteArray temporaryFolder);

    /// The address by which all programs know the file at the absolute `path`.
    [[nodiscard]] static QByteArray uri(const QByteArray& path);

    /// The side of the smallest thumbnails that show `side` pixels without being enlarged; 0 when none are that large.
    [[nodiscard]] static int savedSide(int side);

    /// The name that other programs have for the size of `savedSide` pixels.
    [[nodiscard]] static QByteArray sizeName(int savedSide);

    /// The thumbnails there are of `uri` with room for `side` pixels, the smallest first. Whether they are of the
    /// present state of the file, and whether they are images at all, stands in them.
    [[nodiscard]] std::vector<RegularFile> open(const QByteArray& uri, int side) const;

    /// Whether a thumbnail of the file at `path` belongs here.
    [[nodiscard]] bool takes(const QByteArray& path) const;

    /// Saves a thumbnail of `uri`, in the background. One that cannot be saved is made again another time.
    void save(const QByteArray& uri, int savedSide, const QByteArray& png) const;

private:
    [[nodiscard]] QByteArray sizeFolder(int savedSide) const;
    [[nodiscard]] static QByteArray fileName(const QByteArray& uri);

    QByteArray m_folder;
    QByteArray m_temporaryFolder;
};

} // namespace nookle
