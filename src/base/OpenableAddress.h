#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace nookle {

/// Why an address must not be handed to the desktop's opener, as its scheme or another word for the log, which holds
/// nothing else of the address; none if it may. Refused are addresses that are themselves a program or a page
/// (`javascript:`, `data:` and the like), alone or behind other schemes such as `view-source:`; files of other hosts;
/// what has no scheme; and what is not valid, such as an address with a port that is too large. Every other scheme is
/// open to the user, who has chosen the program that answers to it.
[[nodiscard]] std::optional<QString> refusedScheme(const QUrl& address);

} // namespace nookle
