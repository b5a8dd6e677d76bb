#include "GioTrash.h"

#include "FileUrl.h"

#include <gio/gio.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

namespace nookle {

namespace {

struct Release {
    void operator()(GFile* file) const { g_object_unref(file); }
    void operator()(GError* error) const { g_error_free(error); }
};

} // namespace

GioTrash::GioTrash(const QByteArray& dataHome)
    : m_fragments{ "/.local/share/Trash/", "/.Trash/", "/.Trash-" + QByteArray::number(getuid()) + "/" }
{
    if (!dataHome.isEmpty())
        m_fragments.push_back(standardizedPath(fileUrl(dataHome)) + "/Trash/");
}

std::optional<Failure> GioTrash::moveToTrash(const QUrl& url)
{
    const QByteArray path = standardizedPath(url);
    if (path.isEmpty())
        return Failure{ QStringLiteral("not a file of this computer") };
    // Uses the local file system only: the default one would start the desktop's services for remote files.
    const std::unique_ptr<GFile, Release> file(g_vfs_get_file_for_path(g_vfs_get_local(), path.constData()));
    GError* error = nullptr;
    if (g_file_trash(file.get(), nullptr, &error) != FALSE)
        return std::nullopt;
    const std::unique_ptr<GError, Release> owned(error);
    return Failure{ QString::fromUtf8(owned->message) };
}

bool GioTrash::contains(const QUrl& url) const
{
    const QByteArray path = standardizedPath(url);
    return std::any_of(m_fragments.begin(), m_fragments.end(),
                       [&](const QByteArray& fragment) { return path.contains(fragment); });
}

} // namespace nookle
