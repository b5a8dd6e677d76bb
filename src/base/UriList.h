#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace nookle {

/// The address that a line holds, in ASCII: what its source did not encode is encoded as browsers do, whether or not it
/// is text, and the name of this machine is left out of a file's. None for what has no scheme.
[[nodiscard]] std::optional<QString> uriAddress(const QByteArray& line);

/// The addresses of a list with one in each line, in their order and without its comments. Sources end the lines with
/// or without a carriage return, and the list with or without a NUL.
[[nodiscard]] std::vector<QString> uriListAddresses(QByteArray list);

/// Whether an address is that of a file.
[[nodiscard]] bool isFileAddress(const QString& address);

} // namespace nookle
