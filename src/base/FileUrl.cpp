#include "FileUrl.h"

#include <algorithm>
#include <filesystem>

namespace nookle {

namespace {

/// Whether there is nothing to resolve in a path. That is so for nearly all paths, and this check is much quicker than
/// resolving.
[[nodiscard]] bool isNormal(const QByteArray& path)
{
    const auto needsResolving = [](char sign, char next) { return sign == '/' && (next == '/' || next == '.'); };
    return std::adjacent_find(path.cbegin(), path.cend(), needsResolving) == path.cend()
        && (path.size() == 1 || !path.endsWith('/'));
}

[[nodiscard]] QByteArray normalized(const QByteArray& path)
{
    if (isNormal(path))
        return path;
    std::string normal = std::filesystem::path(path.toStdString()).lexically_normal().string();
    if (normal.size() > 1 && normal.back() == '/')
        normal.pop_back();
    return QByteArray::fromStdString(normal);
}

/// Whether `fileUrl` would return the same URL for the URL's path.
[[nodiscard]] bool isPlain(const QUrl& url)
{
    return url.authority().isEmpty() && !url.hasQuery() && !url.hasFragment()
        && !url.path(QUrl::PrettyDecoded).contains(QLatin1Char('%'));
}

} // namespace

QUrl fileUrl(const QByteArray& path)
{
    // A quick way for text, without encoding and decoding. Not for a path with two slashes at its start, which would be
    // taken for a host.
    if (path.isValidUtf8() && !path.startsWith("//")) {
        QUrl url;
        url.setScheme(QStringLiteral("file"));
        url.setPath(QString::fromUtf8(path), QUrl::DecodedMode);
        return url;
    }
    return QUrl::fromEncoded(QByteArray("file://" + path.toPercentEncoding("/")), QUrl::StrictMode);
}

QByteArray filePath(const QUrl& url)
{
    const QString host = url.host();
    const bool isHere = host.isEmpty() || host == QLatin1String("localhost");
    if (!url.isLocalFile() || !isHere)
        return {};
    const QString text = url.path(QUrl::PrettyDecoded);
    const QByteArray path = text.contains(QLatin1Char('%'))
        ? QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1())
        : text.toUtf8();
    return path.startsWith('/') && !path.contains('\0') ? path : QByteArray();
}

QByteArray standardizedPath(const QUrl& url)
{
    const QByteArray path = filePath(url);
    return path.isEmpty() ? path : normalized(path);
}

QUrl standardized(const QUrl& url)
{
    const QByteArray path = filePath(url);
    const bool isStandard = path.isEmpty() || (isNormal(path) && isPlain(url));
    return isStandard ? url : fileUrl(normalized(path));
}

QString lastPathComponent(const QUrl& url)
{
    return lastPathComponent(standardizedPath(url));
}

QString lastPathComponent(const QByteArray& path)
{
    if (path == "/")
        return QStringLiteral("/");
    return QString::fromUtf8(QByteArrayView(path).sliced(path.lastIndexOf('/') + 1));
}

QUrl child(const QUrl& folder, const QString& name)
{
    QByteArray path = filePath(folder);
    if (!path.endsWith('/'))
        path += '/';
    return fileUrl(path + name.toUtf8());
}

} // namespace nookle
