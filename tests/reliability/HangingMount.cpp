// Shows a folder in another place, as a server or another computer would. Stopped by a signal, it leaves whoever looks
// there without an answer, until it goes on.

#define FUSE_USE_VERSION 35

#include <fuse.h>

#include <dirent.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <string>

namespace {

std::string source;

[[nodiscard]] std::string real(const char* path)
{
    return source + path;
}

// Nothing is remembered: each look asks.
void* begin(fuse_conn_info* /*connection*/, fuse_config* config)
{
    config->use_ino = 1;
    config->attr_timeout = 0;
    config->entry_timeout = 0;
    config->negative_timeout = 0;
    return nullptr;
}

int getAttributes(const char* path, struct stat* status, fuse_file_info* /*file*/)
{
    return ::lstat(real(path).c_str(), status) == 0 ? 0 : -errno;
}

int readFolder(const char* path, void* buffer, fuse_fill_dir_t fill, off_t /*offset*/, fuse_file_info* /*file*/,
               fuse_readdir_flags /*flags*/)
{
    DIR* folder = ::opendir(real(path).c_str());
    if (folder == nullptr)
        return -errno;
    while (const dirent* entry = ::readdir(folder)) {
        struct stat status {};
        status.st_ino = entry->d_ino;
        status.st_mode = static_cast<mode_t>(DTTOIF(entry->d_type));
        fill(buffer, entry->d_name, &status, 0, fuse_fill_dir_flags(0));
    }
    ::closedir(folder);
    return 0;
}

int readFile(const char* path, char* buffer, size_t size, off_t offset, fuse_file_info* /*file*/)
{
    const int file = ::open(real(path).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return -errno;
    const ssize_t length = ::pread(file, buffer, size, offset);
    const int result = length < 0 ? -errno : static_cast<int>(length);
    ::close(file);
    return result;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 3)
        return 2;
    // Does not outlive a test that dies.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    source = argv[1];
    fuse_operations operations{};
    operations.init = begin;
    operations.getattr = getAttributes;
    operations.readdir = readFolder;
    operations.read = readFile;
    std::string name = argv[0];
    std::string foreground = "-f";
    std::string single = "-s";
    std::string option = "-oauto_unmount,fsname=nookle-test";
    char* arguments[] = { name.data(), foreground.data(), single.data(), option.data(), argv[2], nullptr };
    return fuse_main(5, arguments, &operations, nullptr);
}
