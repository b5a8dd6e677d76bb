#include "LinkUrl.h"

#include <QStringView>

#include <algorithm>

namespace nookle {

namespace {

[[nodiscard]] bool isPrintableAscii(QChar character)
{
    return character > QLatin1Char(' ') && character < QLatin1Char('\x7f');
}

[[nodiscard]] bool endsAuthority(QChar character)
{
    return character == QLatin1Char('/') || character == QLatin1Char('?') || character == QLatin1Char('#');
}

} // namespace

std::optional<LinkUrl> LinkUrl::parse(const QString& text)
{
    // Even in strict mode QUrl takes text that is not ASCII, and encodes it.
    if (text.isEmpty() || !std::all_of(text.begin(), text.end(), isPrintableAscii))
        return {};
    const QUrl url(text, QUrl::StrictMode);
    if (!url.isValid() || url.scheme().isEmpty())
        return {};
    return LinkUrl(text);
}

QString LinkUrl::scheme() const
{
    return m_text.left(m_text.indexOf(QLatin1Char(':'))).toLower();
}

std::optional<QString> LinkUrl::host() const
{
    QStringView rest = QStringView(m_text).mid(m_text.indexOf(QLatin1Char(':')) + 1);
    if (!rest.startsWith(QLatin1String("//")))
        return {};
    rest = rest.mid(2);
    QStringView authority = rest.left(std::find_if(rest.begin(), rest.end(), endsAuthority) - rest.begin());
    authority = authority.mid(authority.lastIndexOf(QLatin1Char('@')) + 1);

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

} // namespace nookle
