#include "TrashFolders.h"

#include "FolderEntries.h"

#include <QStringBuilder>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>
#include <optional>

namespace nookle {

namespace {

[[nodiscard]] std::optional<dev_t> device(const QByteArray& path)
{
    struct stat status {};
    return ::stat(path.constData(), &status) == 0 ? std::optional(status.st_dev) : std::nullopt;
}

/// The nearest existing folder above `path`, with all links resolved.
[[nodiscard]] QByteArray nearestFolder(const QByteArray& path)
{
    struct Free {
        void operator()(char* text) const { std::free(text); }
    };
    QByteArray folder = parentFolder(path);
    while (folder != "/") {
        const std::unique_ptr<char, Free> resolved(::realpath(folder.constData(), nullptr));
        if (resolved)
            return resolved.get();
        folder = parentFolder(folder);
    }
    return folder;
}

} // namespace

std::vector<QByteArray> trashFolders(const QByteArray& path, const QByteArray& dataHome)
{
    QByteArray top = nearestFolder(path);
    const auto volume = device(top);
    if (!volume)
        return {};
    if (device(dataHome) == volume)
        return { entryPath(dataHome, "Trash/files") };

    while (top != "/" && device(parentFolder(top)) == volume)
        top = parentFolder(top);
    const QByteArray user = QByteArray::number(::getuid());
    return { entryPath(top, ".Trash/" + user + "/files"), entryPath(top, ".Trash-" + user + "/files") };
}

} // namespace nookle
