#include "Arrival.h"

#include <QSet>

#include <algorithm>

namespace nookle {

std::optional<std::size_t> arrivedRow(const std::vector<QUuid>& before, const std::vector<QUuid>& after)
{
    if (after.empty())
        return std::nullopt;
    const QSet<QUuid> known(before.begin(), before.end());
    const auto arrived = std::find_if(after.begin(), after.end(), [&](const QUuid& id) { return !known.contains(id); });
    if (arrived != after.end())
        return static_cast<std::size_t>(arrived - after.begin());
    const QSet<QUuid> present(after.begin(), after.end());
    const auto top = std::find_if(before.begin(), before.end(), [&](const QUuid& id) { return present.contains(id); });
    return *top == after.front() ? std::nullopt : std::optional<std::size_t>(0);
}

} // namespace nookle
