#pragma once

#include "ToolkitSettings.h"

#include <QByteArray>

namespace nookle {

/// The strings and integers of a settings property, which any program may have written. What follows a malformed entry
/// is left out.
[[nodiscard]] ToolkitSettings::Values parseXSettings(const QByteArray& bytes);

} // namespace nookle
