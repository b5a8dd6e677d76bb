#include "LeftImageCopies.h"

#include "DataFiles.h"
#include "ImageCopy.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <system_error>

namespace nookle {

namespace {

[[nodiscard]] bool isNameOfCopy(const QByteArray& name)
{
    const QUuid id = QUuid::fromString(QLatin1String(name.mid(name.indexOf('-') + 1)));
    return !id.isNull() && name == imageCopyFolder(id);
}

/// Checks the owner and permissions, because any user can make a folder with such a name in the temporary folder.
[[nodiscard]] bool isOwnFolder(const QByteArray& path, const QDateTime& unchangedSince)
{
    struct stat status {};
    constexpr mode_t permissions = S_ISUID | S_ISGID | S_ISVTX | S_IRWXU | S_IRWXG | S_IRWXO;
    return ::lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode) && status.st_uid == ::geteuid()
        && (status.st_mode & permissions) == S_IRWXU && status.st_mtim.tv_sec < unchangedSince.toSecsSinceEpoch();
}

} // namespace

void removeLeftImageCopies(const QDateTime& unchangedSince)
{
    std::error_code error;
    const QByteArray temporary = QByteArray::fromStdString(std::filesystem::temp_directory_path(error).native());
    if (error)
        return;
    for (const QByteArray& name : entriesOf(temporary).value_or(QList<QByteArray>())) {
        const QByteArray path = temporary + '/' + name;
        if (isNameOfCopy(name) && isOwnFolder(path, unchangedSince))
            std::filesystem::remove_all(path.toStdString(), error);
    }
}

} // namespace nookle
