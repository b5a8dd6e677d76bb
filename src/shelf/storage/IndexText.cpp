#include "IndexText.h"

namespace nookle {

QString uuidText(const QUuid& uuid)
{
    return uuid.toString(QUuid::WithoutBraces).toUpper();
}

// Qt reads more forms of both than the index has. Only what is written back as it was read has the index's form.

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
