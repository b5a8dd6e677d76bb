#pragma once

#include <QByteArray>
#include <QString>

namespace nookle {

/// The format "text/x-moz-url": an address and a title on two lines, in UTF-16 without a byte-order mark.
[[nodiscard]] QByteArray mozillaUrl(const QString& address, const QString& title);

} // namespace nookle
