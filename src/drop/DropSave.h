#pragma once

#include <QUrl>

#include <optional>

namespace nookle {

class DropPayload;

/// Whether the source offers to save its data as a file with a usable name. Requests nothing from the source.
[[nodiscard]] bool canSaveDrop(const DropPayload& payload);

/// Asks the source to save its data; archive managers, for example, unpack a dropped file in this way. The result is a
/// new folder among the user's downloads. The files arrive there now or later, or never if the source does not answer
/// in time. None when the source cannot save or refuses, or when the folder cannot be made.
[[nodiscard]] std::optional<QUrl> saveDrop(const DropPayload& payload);

} // namespace nookle
