#include "FileUrl.h"

#include <filesystem>

namespace nookle {

namespace {

/// Whether there is nothing to resolve in a path. Nearly all are of this kind, and finding out is much quicker than
/// resolving.
[[nodiscard]] bool isNormal(const QByteArray& path)
{
    return !path.contains("//") && !path.contains("/.") && (path.size() == 1 || !path.endsWith('/'));
}

} // namespace

QUrl fileUrl(const QByteArray& path)
{
    return QUrl::fromEncoded("file://" + path.toPercentEncoding("/"), QUrl::StrictMode);
}

QByteArray filePath(const QUrl& url)
{
    const bool isHere = url.host().isEmpty() || url.host() == QLatin1String("localhost");
    if (!url.isLocalFile() || !isHere)
        return {};
    const QByteArray path = QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1());
    return path.startsWith('/') && !path.contains('\0') ? path : QByteArray();
}

QByteArray standardizedPath(const QUrl& url)
{
    const QByteArray path = filePath(url);
    if (path.isEmpty() || isNormal(path))
        return path;
    std::string normal = std::filesystem::path(path.toStdString()).lexically_normal().string();
    if (normal.size() > 1 && normal.back() == '/')
        normal.pop_back();
    return QByteArray::fromStdString(normal);
}

QUrl standardized(const QUrl& url)
{
    const QByteArray path = standardizedPath(url);
    return path.isEmpty() ? url : fileUrl(path);
}

QString lastPathComponent(const QUrl& url)
{
    const QByteArray path = standardizedPath(url);
    return QString::fromUtf8(path.mid(path.lastIndexOf('/') + 1));
}

QUrl child(const QUrl& folder, const QString& name)
{
    QByteArray path = filePath(folder);
    if (!path.endsWith('/'))
        path += '/';
    return fileUrl(path + name.toUtf8());
}

} // namespace nookle
