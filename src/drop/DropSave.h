#pragma once

#include <QUrl>

#include <optional>

namespace nookle {

class DropPayload;

/// Whether the source offers to save what it carries, under a name that a file can have; asks it for nothing.
[[nodiscard]] bool canSaveDrop(const DropPayload& payload);

/// Has the source save what it carries, as archive managers do that unpack a file when it is dropped. The result is a
/// new folder for it among the user's downloads, into which the files come now or later, or never when it does not
/// answer in time; none when the source cannot save, refuses, or no folder can be made.
[[nodiscard]] std::optional<QUrl> saveDrop(const DropPayload& payload);

} // namespace nookle
