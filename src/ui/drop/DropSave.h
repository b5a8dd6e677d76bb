#pragma once

#include <QUrl>

#include <optional>

namespace nookle {

class DropPayload;

/// Has the source save what it carries, as archive managers do that unpack a file when it is dropped. The result is a
/// new folder for it among the user's downloads, into which the files come now or later; none when the source cannot
/// save, refuses, or no folder can be made.
[[nodiscard]] std::optional<QUrl> saveDrop(const DropPayload& payload);

} // namespace nookle
