#pragma once

#include <QString>
#include <QUrl>

#include <optional>

namespace nookle {

/// Checks whether the desktop may open an address. None if it may; otherwise the reason for the log: the refused scheme
/// or a short text, and nothing else of the address. Refused are: addresses that contain a program or a page
/// (`javascript:`, `data:` and the like), alone or behind other schemes such as `view-source:`; files of other hosts;
/// addresses without a scheme; and invalid addresses, such as one whose port is too large. Every other scheme is
/// allowed: the user has chosen the program that opens it.
[[nodiscard]] std::optional<QString> refusedScheme(const QUrl& address);

} // namespace nookle
