#pragma once

#include <QString>
#include <QUuid>

#include <optional>

namespace nookle {

/// The canonical text of an identity: 36 characters, hyphenated, upper case.
[[nodiscard]] QString uuidText(const QUuid& uuid);

/// Reads exactly that form, in any letter case.
[[nodiscard]] std::optional<QUuid> uuidFromText(const QString& text);

} // namespace nookle
