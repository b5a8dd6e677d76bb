#include "UuidText.h"

namespace nookle {

QString uuidText(const QUuid& uuid)
{
    return uuid.toString(QUuid::WithoutBraces).toUpper();
}

std::optional<QUuid> uuidFromText(const QString& text)
{
    // Qt takes braces and trailing characters too, and has no result of its own for text that is no UUID.
    const QUuid uuid = QUuid::fromString(text);
    if (uuidText(uuid) != text.toUpper())
        return {};
    return uuid;
}

} // namespace nookle
