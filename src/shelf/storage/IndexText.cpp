#include "IndexText.h"

namespace nookle {

QString uuidText(const QUuid& uuid)
{
    return uuid.toString(QUuid::WithoutBraces).toUpper();
}

// Qt accepts more forms of UUIDs and dates than the index uses. A text has the index's form only if writing the value
// gives the same text.

std::optional<QUuid> uuidFromText(const QString& text)
{
    const QUuid uuid = QUuid::fromString(text);
    return uuidText(uuid) == text.toUpper() ? std::optional(uuid) : std::nullopt;
}

QString dateText(const QDateTime& date)
{
    return date.toUTC().toString(Qt::ISODate);
}

std::optional<QDateTime> dateFromText(const QString& text)
{
    const QDateTime date = QDateTime::fromString(text, Qt::ISODate);
    return date.isValid() && dateText(date) == text ? std::optional(date) : std::nullopt;
}

} // namespace nookle
