#include "DataFiles.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <system_error>

namespace nookle {

namespace {

namespace fs = std::filesystem;

inline constexpr auto* unfinishedPrefix = ".unfinished-";

[[nodiscard]] std::optional<Failure> failure(const std::error_code& error)
{
    if (!error)
        return {};
    return Failure{ QString::fromStdString(error.message()) };
}

[[nodiscard]] std::error_code lastError()
{
    return { errno, std::generic_category() };
}

[[nodiscard]] std::error_code makeFolders(const fs::path& path)
{
    std::error_code ignored;
    if (fs::is_directory(path, ignored))
        return {};
    if (path.has_relative_path()) {
        if (const std::error_code error = makeFolders(path.parent_path()))
            return error;
    }
    if (::mkdir(path.c_str(), S_IRWXU) == 0)
        return {};
    const std::error_code error = lastError();
    if (error != std::errc::file_exists)
        return error;
    return fs::is_directory(path, ignored) ? std::error_code() : std::make_error_code(std::errc::not_a_directory);
}

/// Waits until the file's bytes have reached the disk.
[[nodiscard]] std::error_code flush(const fs::path& path)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0)
        return lastError();
    const std::error_code error = ::fsync(descriptor) == 0 ? std::error_code() : lastError();
    ::close(descriptor);
    return error;
}

[[nodiscard]] std::error_code writeAll(int descriptor, const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count =
            ::write(descriptor, bytes.constData() + written, static_cast<std::size_t>(bytes.size() - written));
        if (count < 0 && errno != EINTR)
            return lastError();
        written += std::max<ssize_t>(count, 0);
    }
    return {};
}

/// A unique path in the folder for an unfinished file. Its name is short, whatever the final name is.
[[nodiscard]] fs::path unfinishedFile(const fs::path& folder)
{
    constexpr int hexadecimal = 16;
    const QByteArray number = QByteArray::number(QRandomGenerator::system()->generate64(), hexadecimal);
    return folder / QByteArray(unfinishedPrefix + number).toStdString();
}

/// Writes the file and waits until it has reached the disk. Qt's own writer does not report a failure of that, and
/// would replace a good file with a bad one.
[[nodiscard]] std::error_code writeNewFile(const fs::path& path, const QByteArray& bytes, mode_t permissions)
{
    const int descriptor =
        ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (descriptor < 0)
        return lastError();
    std::error_code error = writeAll(descriptor, bytes);
    // Ignored, because some file systems do not support permissions.
    static_cast<void>(::fchmod(descriptor, permissions));
    if (!error && ::fsync(descriptor) != 0)
        error = lastError();
    if (::close(descriptor) != 0 && !error)
        error = lastError();
    return error;
}

/// The path to write to if `path` may be a link: its target, which need not exist. Sets `error` if the link cannot be
/// resolved.
[[nodiscard]] fs::path behindLinks(const fs::path& path, std::error_code& error)
{
    std::error_code ignored;
    if (!fs::is_symlink(path, ignored))
        return path;
    const fs::path target = fs::read_symlink(path, error);
    return error ? fs::path() : fs::weakly_canonical(path.parent_path() / target, error);
}

/// The permissions of the file that is replaced. Only the user can access a new file.
[[nodiscard]] mode_t permissionsFor(const fs::path& path)
{
    struct stat status {};
    constexpr mode_t all = S_IRWXU | S_IRWXG | S_IRWXO;
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & all : S_IRUSR | S_IWUSR;
}

[[nodiscard]] std::error_code copyFile(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    const fs::file_status status = fs::symlink_status(from, error);
    if (error)
        return error;
    if (fs::is_symlink(status)) {
        fs::copy_symlink(from, to, error);
        return error;
    }
    // Fails for anything but a regular file.
    fs::copy_file(from, to, error);
    return error ? error : flush(to);
}

/// Waits until the names in the folder have reached the disk, and the folder's own name, which may be new.
[[nodiscard]] std::error_code flushNames(const fs::path& folder)
{
    for (const fs::path& path : { folder, folder.parent_path() }) {
        const std::error_code error = flush(path);
        // Some file systems do not support this for folders.
        if (error && error != std::errc::invalid_argument)
            return error;
    }
    return {};
}

[[nodiscard]] std::error_code moveAcrossFileSystems(const fs::path& from, const fs::path& to)
{
    // Copied under another name first, so that an incomplete copy is never taken for the file.
    const fs::path unfinished = unfinishedFile(to.parent_path());
    std::error_code error = copyFile(from, unfinished);
    if (!error)
        fs::rename(unfinished, to, error);
    std::error_code ignored;
    if (error) {
        fs::remove(unfinished, ignored);
        return error;
    }
    error = flushNames(to.parent_path());
    if (!error)
        fs::remove(from, error);
    if (error)
        fs::remove(to, ignored);
    return error;
}

[[nodiscard]] bool isOldUnfinishedFile(const fs::path& path, const QDateTime& time)
{
    struct stat status {};
    return path.filename().native().rfind(unfinishedPrefix, 0) == 0 && ::lstat(path.c_str(), &status) == 0
        && S_ISREG(status.st_mode) && status.st_uid == ::geteuid() && status.st_mtim.tv_sec < time.toSecsSinceEpoch();
}

} // namespace

std::optional<Failure> makeFolder(const QByteArray& path)
{
    return failure(makeFolders(path.toStdString()));
}

std::optional<Failure> writeAtomically(const QByteArray& path, const QByteArray& bytes)
{
    std::error_code error;
    const fs::path target = behindLinks(path.toStdString(), error);
    if (error)
        return failure(error);
    const fs::path unfinished = unfinishedFile(target.parent_path());
    error = writeNewFile(unfinished, bytes, permissionsFor(target));
    if (!error)
        fs::rename(unfinished, target, error);
    std::error_code ignored;
    if (error)
        fs::remove(unfinished, ignored);
    else
        static_cast<void>(flush(target.parent_path()));
    return failure(error);
}

std::optional<Failure> relocateFile(const QByteArray& from, const QByteArray& to)
{
    std::error_code error;
    fs::rename(from.toStdString(), to.toStdString(), error);
    if (error == std::errc::cross_device_link)
        error = moveAcrossFileSystems(from.toStdString(), to.toStdString());
    return failure(error);
}

std::optional<QList<QByteArray>> entriesOf(const QByteArray& folder)
{
    QList<QByteArray> names;
    std::error_code error;
    // The increment operator of a range loop would throw.
    for (fs::directory_iterator entry(folder.toStdString(), error), end; !error && entry != end; entry.increment(error))
        names.append(QByteArray::fromStdString(entry->path().filename().native()));
    if (error && error != std::errc::no_such_file_or_directory)
        return {};
    return names;
}

void keepPrivate(const QByteArray& folder)
{
    struct stat status {};
    constexpr mode_t others = S_IRWXG | S_IRWXO;
    const bool isOwn = ::stat(folder.constData(), &status) == 0 && status.st_uid == ::geteuid();
    if (isOwn && S_ISDIR(status.st_mode) && (status.st_mode & others) != 0)
        static_cast<void>(::chmod(folder.constData(), status.st_mode & S_IRWXU));
}

void removeUnfinished(const QByteArray& folder, const QDateTime& unchangedSince)
{
    for (const QByteArray& name : entriesOf(folder).value_or(QList<QByteArray>())) {
        const fs::path path = QByteArray(folder + '/' + name).toStdString();
        std::error_code ignored;
        if (isOldUnfinishedFile(path, unchangedSince))
            fs::remove(path, ignored);
    }
}

} // namespace nookle
