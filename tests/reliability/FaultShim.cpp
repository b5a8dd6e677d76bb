// Makes calls of the program that it is loaded into fail below one folder. FAULT_FOLDER names the folder, FAULT_CALL
// the call, FAULT_ERROR the number of the error. The fault lasts until the file that FAULT_UNTIL names exists.

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

std::string variable(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

bool isOver()
{
    struct stat status {};
    return ::stat(variable("FAULT_UNTIL").c_str(), &status) == 0;
}

bool fails(const char* call, const char* path)
{
    const std::string folder = variable("FAULT_FOLDER");
    const bool isMeant = variable("FAULT_CALL") == call && !folder.empty() && path != nullptr
        && std::strncmp(path, folder.c_str(), folder.size()) == 0;
    if (!isMeant || isOver())
        return false;
    errno = std::atoi(variable("FAULT_ERROR").c_str());
    return true;
}

bool fails(const char* call, int descriptor)
{
    std::array<char, PATH_MAX> path{};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    const int previous = errno;
    const bool isKnown = ::readlink(link.c_str(), path.data(), path.size() - 1) > 0;
    errno = previous;
    return isKnown && fails(call, path.data());
}

template <typename Function> Function* original(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

int openWith(const char* name, const char* path, int flags, mode_t mode)
{
    if (fails((flags & O_CREAT) != 0 ? "open" : "open to read", path))
        return -1;
    return original<int(const char*, int, ...)>(name)(path, flags, mode);
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & O_CREAT) != 0 ? va_arg(arguments, mode_t) : 0;
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openWith("open", path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return openWith("open64", path, flags, mode);
}

ssize_t write(int descriptor, const void* bytes, size_t size)
{
    return fails("write", descriptor) ? -1
                                      : original<ssize_t(int, const void*, size_t)>("write")(descriptor, bytes, size);
}

int fchmod(int descriptor, mode_t mode)
{
    return fails("fchmod", descriptor) ? -1 : original<int(int, mode_t)>("fchmod")(descriptor, mode);
}

ssize_t read(int descriptor, void* bytes, size_t size)
{
    return fails("read", descriptor) ? -1 : original<ssize_t(int, void*, size_t)>("read")(descriptor, bytes, size);
}

int fsync(int descriptor)
{
    struct stat status {};
    const bool isFolder = ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
    if (fails("fsync", descriptor) || (isFolder && fails("fsync of a folder", descriptor)))
        return -1;
    return original<int(int)>("fsync")(descriptor);
}

// The first entry still arrives.
dirent* readdir(DIR* folder)
{
    if (::telldir(folder) != 0 && fails("readdir", ::dirfd(folder)))
        return nullptr;
    return original<dirent*(DIR*)>("readdir")(folder);
}

int rename(const char* from, const char* to)
{
    return fails("rename", to) ? -1 : original<int(const char*, const char*)>("rename")(from, to);
}

int mkdir(const char* path, mode_t mode)
{
    return fails("mkdir", path) ? -1 : original<int(const char*, mode_t)>("mkdir")(path, mode);
}

} // extern "C"
