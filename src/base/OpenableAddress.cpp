#include "OpenableAddress.h"

#include <QStringView>

#include <algorithm>
#include <array>

namespace nookle {

namespace {

/// The schemes of addresses that contain a program or a page.
inline constexpr std::array refusedSchemes{ QLatin1String("about"), QLatin1String("blob"), QLatin1String("data"),
                                            QLatin1String("javascript"), QLatin1String("vbscript") };

/// More nested schemes than any real address has.
inline constexpr int mostSchemes = 8;

[[nodiscard]] bool isSchemeCharacter(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9') || code == '+'
        || code == '-' || code == '.';
}

/// The address as browsers read it: they ignore white space and control characters.
[[nodiscard]] QString readableText(const QUrl& address)
{
    QString text = QString::fromLatin1(QByteArray::fromPercentEncoding(address.toEncoded()));
    text.removeIf([](QChar character) { return character.unicode() <= 0x20 || character.unicode() == 0x7f; });
    return text;
}

/// The scheme that a text begins with, in lower case; empty if it begins with none.
[[nodiscard]] QString schemeOf(QStringView text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), isSchemeCharacter);
    const bool isScheme = end != text.begin() && end != text.end() && *end == QLatin1Char(':');
    return isScheme ? QStringView(text.begin(), end).toString().toLower() : QString();
}

[[nodiscard]] bool isRefused(const QString& scheme, QStringView rest)
{
    if (scheme == QLatin1String("file"))
        return rest.startsWith(QLatin1String("//")) && !rest.startsWith(QLatin1String("///"));
    return std::find(refusedSchemes.begin(), refusedSchemes.end(), scheme) != refusedSchemes.end();
}

} // namespace

std::optional<QString> refusedScheme(const QUrl& address)
{
    if (address.scheme().isEmpty())
        return QStringLiteral("no scheme");
    if (!address.isValid())
        return QStringLiteral("not valid");
    const QString text = readableText(address);
    QStringView rest(text);
    for (int count = 0; count < mostSchemes; ++count) {
        const QString scheme = schemeOf(rest);
        if (scheme.isEmpty())
            return std::nullopt;
        rest = rest.mid(scheme.size() + 1);
        if (isRefused(scheme, rest))
            return scheme;
    }
    return QStringLiteral("too many schemes");
}

} // namespace nookle
