#include "DateText.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace nookle {

namespace {

// A pattern of digits (0) and signs. Qt's own functions read more forms than this one and take ten times as long, and
// every item of the shelf has a date.
constexpr QLatin1String pattern("0000-00-00T00:00:00Z");

[[nodiscard]] bool isDigit(QChar character)
{
    return character >= u'0' && character <= u'9';
}

[[nodiscard]] bool hasPattern(const QString& text)
{
    return text.size() == pattern.size()
        && std::equal(text.cbegin(), text.cend(), pattern.begin(), [](QChar character, char expected) {
               return expected == '0' ? isDigit(character) : character == QLatin1Char(expected);
           });
}

/// The number that stands in digits at that place.
[[nodiscard]] int number(const QString& text, qsizetype first, qsizetype count)
{
    int number = 0;
    for (qsizetype place = first; place < first + count; ++place)
        number = number * 10 + (text[place].unicode() - u'0');
    return number;
}

} // namespace

QByteArray dateText(const QDateTime& date)
{
    constexpr int lastYear = 9999;
    const QDateTime utc = date.toUTC();
    const QTime time = utc.time();
    int year = 0;
    int month = 0;
    int day = 0;
    utc.date().getDate(&year, &month, &day);
    if (!utc.isValid() || year < 1 || year > lastYear)
        return {};
    std::array<char, sizeof("0000-00-00T00:00:00Z")> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02dZ", year, month, day, time.hour(),
                  time.minute(), time.second());
    return { text.data(), pattern.size() };
}

std::optional<QDateTime> dateFromText(const QString& text)
{
    if (!hasPattern(text))
        return std::nullopt;
    const QDate day(number(text, 0, 4), number(text, 5, 2), number(text, 8, 2));
    const QTime time(number(text, 11, 2), number(text, 14, 2), number(text, 17, 2));
    return day.isValid() && time.isValid() ? std::optional(QDateTime(day, time, Qt::UTC)) : std::nullopt;
}

} // namespace nookle
