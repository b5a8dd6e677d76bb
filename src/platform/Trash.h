#pragma once

#include "Failure.h"

#include <QUrl>

#include <optional>

namespace nookle {

/// The user's Trash. Main thread only.
class Trash {
public:
    virtual ~Trash() = default;

    /// Moves the file or folder at `url` to the Trash of its volume.
    [[nodiscard]] virtual std::optional<Failure> moveToTrash(const QUrl& url) = 0;

    /// Moves the file that `moveToTrash` has moved away from `url` back there. Nothing may exist at `url`, and its
    /// folder must exist. Fails if the Trash does not hold the file any more.
    [[nodiscard]] virtual std::optional<Failure> putBack(const QUrl& url) = 0;

    /// Whether the Trash still holds the file that `moveToTrash` has moved away from `url`.
    [[nodiscard]] virtual bool canPutBack(const QUrl& url) const = 0;

    /// Whether the path of `url` lies in a Trash. Checks only the path, not the disk.
    [[nodiscard]] virtual bool contains(const QUrl& url) const = 0;
};

} // namespace nookle
