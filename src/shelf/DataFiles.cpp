#include "DataFiles.h"

#include <QFile>
#include <QSaveFile>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace nookle {

namespace {

namespace fs = std::filesystem;

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
    // Refuses anything but a regular file.
    fs::copy_file(from, to, error);
    return error ? error : flush(to);
}

[[nodiscard]] std::error_code moveAcrossFileSystems(const fs::path& from, const fs::path& to)
{
    // Under another name first: a copy that was cut short must never be taken for the file.
    const fs::path unfinished = to.parent_path() / ".unfinished";
    std::error_code error = copyFile(from, unfinished);
    if (!error)
        fs::rename(unfinished, to, error);
    std::error_code ignored;
    if (error) {
        fs::remove(unfinished, ignored);
        return error;
    }
    fs::remove(from, error);
    if (error)
        fs::remove(to, ignored);
    return error;
}

} // namespace

std::optional<Failure> makeFolder(const QByteArray& path)
{
    return failure(makeFolders(path.toStdString()));
}

std::optional<Failure> writeAtomically(const QByteArray& path, const QByteArray& bytes)
{
    QSaveFile file(QFile::decodeName(path));
    const bool isNew = !QFile::exists(file.fileName());
    if (!file.open(QIODevice::WriteOnly))
        return Failure{ file.errorString() };
    if (isNew)
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    if (file.write(bytes) != bytes.size() || !file.commit())
        return Failure{ file.errorString() };
    return {};
}

std::optional<Failure> moveFile(const QByteArray& from, const QByteArray& to)
{
    std::error_code error;
    fs::rename(from.toStdString(), to.toStdString(), error);
    if (error == std::errc::cross_device_link)
        error = moveAcrossFileSystems(from.toStdString(), to.toStdString());
    return failure(error);
}

} // namespace nookle
