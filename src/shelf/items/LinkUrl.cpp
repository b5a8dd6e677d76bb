#include "LinkUrl.h"

#include <QStringView>

#include <arpa/inet.h>

#include <algorithm>

namespace nookle {

namespace {

[[nodiscard]] bool isLetter(QChar each)
{
    const ushort lower = each.unicode() | 0x20;
    return lower >= 'a' && lower <= 'z';
}

[[nodiscard]] bool isDigit(QChar each)
{
    return each >= QLatin1Char('0') && each <= QLatin1Char('9');
}

[[nodiscard]] bool isHexadecimal(QChar each)
{
    const ushort lower = each.unicode() | 0x20;
    return isDigit(each) || (lower >= 'a' && lower <= 'f');
}

[[nodiscard]] bool isOneOf(QChar each, const char* characters)
{
    return QLatin1String(characters).contains(each);
}

/// The characters that any part of an address may hold: "unreserved" and "sub-delims".
[[nodiscard]] bool isCommon(QChar each)
{
    return isLetter(each) || isDigit(each) || isOneOf(each, "-._~!$&'()*+,;=");
}

/// Whether a part contains only common characters, escapes and the characters in `others`.
[[nodiscard]] bool consistsOf(QStringView part, const char* others)
{
    for (qsizetype index = 0; index < part.size(); ++index) {
        const bool isEscape = part[index] == QLatin1Char('%') && index + 2 < part.size()
            && isHexadecimal(part[index + 1]) && isHexadecimal(part[index + 2]);
        if (isEscape)
            index += 2;
        else if (!isCommon(part[index]) && !isOneOf(part[index], others))
            return false;
    }
    return true;
}

[[nodiscard]] bool isScheme(QStringView scheme)
{
    return !scheme.isEmpty() && isLetter(scheme.front()) && std::all_of(scheme.begin(), scheme.end(), [](QChar each) {
        return isLetter(each) || isDigit(each) || isOneOf(each, "+-.");
    });
}

[[nodiscard]] bool isAddressInBrackets(QStringView address)
{
    if (address.startsWith(QLatin1Char('v')) || address.startsWith(QLatin1Char('V'))) {
        const qsizetype dot = address.indexOf(QLatin1Char('.'));
        const QStringView version = address.mid(1, dot - 1);
        const QStringView rest = address.mid(dot + 1);
        return dot > 1 && !rest.isEmpty() && std::all_of(version.begin(), version.end(), isHexadecimal)
            && std::all_of(rest.begin(), rest.end(),
                           [](QChar each) { return isCommon(each) || each == QLatin1Char(':'); });
    }
    in6_addr ignored{};
    return ::inet_pton(AF_INET6, address.toLatin1().constData(), &ignored) == 1;
}

[[nodiscard]] bool isPort(QStringView port)
{
    return std::all_of(port.begin(), port.end(), isDigit);
}

[[nodiscard]] bool isHostAndPort(QStringView text)
{
    if (text.startsWith(QLatin1Char('['))) {
        const qsizetype end = text.indexOf(QLatin1Char(']'));
        const QStringView rest = text.mid(end + 1);
        return end > 0 && isAddressInBrackets(text.mid(1, end - 1))
            && (rest.isEmpty() || (rest.startsWith(QLatin1Char(':')) && isPort(rest.mid(1))));
    }
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    const QStringView host = colon < 0 ? text : text.left(colon);
    return consistsOf(host, "") && (colon < 0 || isPort(text.mid(colon + 1)));
}

[[nodiscard]] bool isAuthority(QStringView authority)
{
    const qsizetype at = authority.indexOf(QLatin1Char('@'));
    return consistsOf(authority.left(std::max<qsizetype>(at, 0)), ":") && isHostAndPort(authority.mid(at + 1));
}

[[nodiscard]] bool endsAuthority(QChar character)
{
    return isOneOf(character, "/?#");
}

/// The text between the two slashes and the path; none without the slashes.
[[nodiscard]] std::optional<QStringView> authorityOf(QStringView behindScheme)
{
    if (!behindScheme.startsWith(QLatin1String("//")))
        return {};
    const QStringView rest = behindScheme.mid(2);
    return rest.left(std::find_if(rest.begin(), rest.end(), endsAuthority) - rest.begin());
}

/// Whether a text is an absolute address in the syntax of RFC 3986.
[[nodiscard]] bool isAbsoluteAddress(QStringView text)
{
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    if (colon < 0 || !isScheme(text.left(colon)))
        return false;
    QStringView rest = text.mid(colon + 1);
    if (const auto authority = authorityOf(rest)) {
        if (!isAuthority(*authority))
            return false;
        rest = rest.mid(2 + authority->size());
    }
    const qsizetype hash = rest.indexOf(QLatin1Char('#'));
    const QStringView fragment = hash < 0 ? QStringView() : rest.mid(hash + 1);
    return consistsOf(hash < 0 ? rest : rest.left(hash), ":@/?") && consistsOf(fragment, ":@/?");
}

[[nodiscard]] bool isPrintableAscii(QChar character)
{
    return character > QLatin1Char(' ') && character < QLatin1Char('\x7f');
}

} // namespace

std::optional<LinkUrl> LinkUrl::parse(const QString& text)
{
    return isAbsoluteAddress(text) ? std::optional(LinkUrl(text)) : std::nullopt;
}

std::optional<LinkUrl> LinkUrl::parseSaved(const QString& text)
{
    if (isAbsoluteAddress(text))
        return LinkUrl(text);
    const QUrl url(text, QUrl::StrictMode);
    // Even in strict mode, QUrl accepts non-ASCII text and encodes it.
    const bool isAscii = !text.isEmpty() && std::all_of(text.begin(), text.end(), isPrintableAscii);
    return isAscii && url.isValid() && !url.scheme().isEmpty() ? std::optional(LinkUrl(text)) : std::nullopt;
}

QString LinkUrl::scheme() const
{
    return m_text.left(m_text.indexOf(QLatin1Char(':'))).toLower();
}

std::optional<QString> LinkUrl::host() const
{
    const auto whole = authorityOf(QStringView(m_text).mid(m_text.indexOf(QLatin1Char(':')) + 1));
    if (!whole)
        return {};
    const QStringView authority = whole->mid(whole->lastIndexOf(QLatin1Char('@')) + 1);

    QStringView host;
    if (authority.startsWith(QLatin1Char('[')))
        host = authority.mid(1, authority.indexOf(QLatin1Char(']')) - 1);
    else if (const qsizetype colon = authority.lastIndexOf(QLatin1Char(':')); colon >= 0)
        host = authority.left(colon);
    else
        host = authority;
    if (host.isEmpty())
        return {};
    return host.toString();
}

QUrl LinkUrl::url() const
{
    const QUrl strict(m_text, QUrl::StrictMode);
    // The strict mode refuses every escape in a host.
    return strict.isValid() ? strict : QUrl(m_text, QUrl::TolerantMode);
}

} // namespace nookle
