#pragma once

#include <QUuid>

#include <cstddef>
#include <optional>
#include <vector>

namespace nookle {

/// The topmost row of `after` that was not there `before`, or the first row if what was lower before is there now. None
/// if rows have only gone.
[[nodiscard]] std::optional<std::size_t> arrivedRow(const std::vector<QUuid>& before, const std::vector<QUuid>& after);

} // namespace nookle
