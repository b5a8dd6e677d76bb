#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace nookle {

/// The address in a line, in ASCII. Characters and bytes that its source should have percent-encoded are encoded as
/// browsers do. The name of this machine is removed from a file's address. None for a line without a scheme.
[[nodiscard]] std::optional<QString> uriAddress(const QByteArray& line);

/// The addresses of a list, one a line, in order; comment lines are skipped. Lines may end with a carriage return, and
/// the list with a NUL.
[[nodiscard]] std::vector<QString> uriListAddresses(QByteArray list);

/// Whether an address is that of a file.
[[nodiscard]] bool isFileAddress(const QString& address);

} // namespace nookle
