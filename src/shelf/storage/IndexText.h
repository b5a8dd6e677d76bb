#pragma once

#include <QDateTime>
#include <QString>
#include <QUuid>

#include <optional>

namespace nookle {

/// The canonical text of a UUID: 36 characters, hyphenated, upper case.
[[nodiscard]] QString uuidText(const QUuid& uuid);

/// Reads the form that `uuidText` writes, in any letter case; none for any other form.
[[nodiscard]] std::optional<QUuid> uuidFromText(const QString& text);

/// A moment in whole seconds as the index writes it, such as 2026-01-31T12:00:00Z; empty before the year 1 and after
/// the year 9999.
[[nodiscard]] QString dateText(const QDateTime& date);

/// Reads the form that `dateText` writes; none for any other form.
[[nodiscard]] std::optional<QDateTime> dateFromText(const QString& text);

} // namespace nookle
