#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace nookle {

/// Who has started the program.
enum class StartReason { user, login, request };

/// The reason of this start: what started the program has set the variable NOOKLE_START to "login" or "request", or the
/// session has put the process among its automatically started ones. Removes the variable, which is of no concern to
/// programs that this one starts.
[[nodiscard]] StartReason takeStartReason();

/// As above, from the variable's value, from whether the session names an automatic start, and from the content of
/// /proc/self/cgroup.
[[nodiscard]] StartReason startReason(const QByteArray& variable, bool isSessionClient,
                                      const QByteArray& controlGroups);

/// Whether the program has never kept anything: neither an index nor settings are there.
[[nodiscard]] bool isFirstStart(const QUrl& dataFolder, const QString& settingsFile);

} // namespace nookle
