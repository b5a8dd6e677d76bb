#include "UuidText.h"

#include <algorithm>

namespace nookle {

namespace {

constexpr QLatin1String pattern("00000000-0000-0000-0000-000000000000");

[[nodiscard]] bool isHexDigit(QChar character)
{
    return (character >= u'0' && character <= u'9') || (character >= u'a' && character <= u'f')
        || (character >= u'A' && character <= u'F');
}

} // namespace

QString uuidText(const QUuid& uuid)
{
    return uuid.toString(QUuid::WithoutBraces).toUpper();
}

std::optional<QUuid> uuidFromText(const QString& text)
{
    // Qt takes braces and trailing characters too, and has no result of its own for text that is no UUID.
    const bool isUuid = text.size() == pattern.size()
        && std::equal(text.cbegin(), text.cend(), pattern.begin(), [](QChar character, char expected) {
                            return expected == '-' ? character == u'-' : isHexDigit(character);
                        });
    return isUuid ? std::optional(QUuid::fromString(text)) : std::nullopt;
}

} // namespace nookle
