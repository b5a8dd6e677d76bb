#include "GioTrash.h"

#include "DataFiles.h"
#include "FileUrl.h"
#include "TrashFolders.h"
#include "TrashedFile.h"

#include <fcntl.h>
#include <gio/gio.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <utility>

namespace nookle {

namespace {

struct Release {
    void operator()(GFile* file) const { g_object_unref(file); }
    void operator()(GError* error) const { g_error_free(error); }
};

/// What was trashed last of all that was at `path`.
[[nodiscard]] std::optional<TrashedFile> newestFrom(const QByteArray& path, const QByteArray& dataHome)
{
    std::optional<TrashedFile> newest;
    for (const QByteArray& folder : trashFolders(path, dataHome)) {
        std::optional<TrashedFile> found = TrashedFile::find(folder, path);
        if (found && (!newest || newest->deletionDate < found->deletionDate))
            newest = std::move(found);
    }
    return newest;
}

} // namespace

GioTrash::GioTrash(const QByteArray& dataHome)
    : m_dataHome(dataHome)
    , m_fragments{ "/.local/share/Trash/", "/.Trash/", "/.Trash-" + QByteArray::number(getuid()) + "/" }
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

std::optional<Failure> GioTrash::putBack(const QUrl& url)
{
    const QByteArray path = standardizedPath(url);
    if (path.isEmpty())
        return Failure{ QStringLiteral("not a file of this computer") };
    const std::optional<TrashedFile> newest = newestFrom(path, m_dataHome);
    if (!newest)
        return Failure{ QStringLiteral("it is not in the Trash") };
    if (::faccessat(AT_FDCWD, path.constData(), F_OK, AT_SYMLINK_NOFOLLOW) == 0)
        return Failure{ QStringLiteral("something else is in its place") };
    if (std::optional<Failure> failure = relocateFile(newest->path, path))
        return failure;
    ::unlink(newest->infoPath.constData());
    return std::nullopt;
}

bool GioTrash::canPutBack(const QUrl& url) const
{
    const QByteArray path = standardizedPath(url);
    return !path.isEmpty() && newestFrom(path, m_dataHome).has_value();
}

bool GioTrash::contains(const QUrl& url) const
{
    const QByteArray path = standardizedPath(url);
    return std::any_of(m_fragments.begin(), m_fragments.end(),
                       [&](const QByteArray& fragment) { return path.contains(fragment); });
}

} // namespace nookle
