#include "ContentSniffing.h"

#include "PictureFormat.h"

#include <algorithm>
#include <array>

namespace nookle {

namespace {

[[nodiscard]] bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

[[nodiscard]] QByteArray withoutMark(const QByteArray& bytes)
{
    return bytes.startsWith("\xef\xbb\xbf") ? bytes.mid(3) : bytes;
}

[[nodiscard]] bool looksLikeSvg(const QByteArray& bytes)
{
    const QByteArray beginning =
        withoutMark(bytes).first(std::min<qsizetype>(withoutMark(bytes).size(), 4096)).trimmed();
    if (!beginning.startsWith('<') || !beginning.contains("<svg"))
        return false;
    const QByteArray lower = beginning.first(std::min<qsizetype>(beginning.size(), 64)).toLower();
    return !lower.startsWith("<html") && !lower.startsWith("<!doctype html");
}

} // namespace

std::optional<bool> isPageType(const QByteArray& contentType)
{
    const auto* const end = std::find(contentType.begin(), contentType.end(), ';');
    const QByteArray type = contentType.first(end - contentType.begin()).trimmed().toLower();
    if (type.isEmpty())
        return std::nullopt;
    return type == "text/html" || type == "application/xhtml+xml";
}

bool looksLikePage(const QByteArray& bytes)
{
    if (bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff"))
        return true;
    const QByteArray text = withoutMark(bytes).trimmed();
    return text.size() >= 2 && text.at(0) == '<' && (isLetter(text.at(1)) || text.at(1) == '!' || text.at(1) == '?');
}

bool looksLikeIcon(const QByteArray& bytes)
{
    constexpr std::array formats{ "png", "jpeg", "gif", "webp", "ico" };
    const QByteArray format = pixelFormat(bytes);
    return std::find(formats.begin(), formats.end(), format) != formats.end() || looksLikeSvg(bytes);
}

} // namespace nookle
