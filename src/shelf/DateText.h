#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <optional>

namespace nookle {

/// A moment in whole seconds as the index writes it, such as 2026-01-31T12:00:00Z; empty before the year 1 and after
/// the year 9999.
[[nodiscard]] QByteArray dateText(const QDateTime& date);

/// The moment; nothing for any other form.
[[nodiscard]] std::optional<QDateTime> dateFromText(const QString& text);

} // namespace nookle
