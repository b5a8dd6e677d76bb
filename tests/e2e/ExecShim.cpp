// Writes down which programs the program that it is loaded into starts, and with what. EXEC_RECORD names the file: for
// each start the number of words, the program, and its words from the first argument on, each with a zero byte after
// it.

#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

template <typename Function> Function* original(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

void record(const char* program, char* const* arguments)
{
    const char* path = std::getenv("EXEC_RECORD");
    if (path == nullptr)
        return;
    int count = 1;
    std::string words = program + std::string(1, '\0');
    for (char* const* argument = arguments + 1; arguments[0] != nullptr && *argument != nullptr; ++argument, ++count)
        words += *argument + std::string(1, '\0');
    const std::string line = std::to_string(count) + '\0' + words;
    const int file = ::open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0 || ::write(file, line.data(), line.size()) != static_cast<ssize_t>(line.size()))
        std::perror("EXEC_RECORD");
    ::close(file);
}

void recordShell(const char* command)
{
    std::string words[] = { "sh", "-c", command };
    char* const arguments[] = { words[0].data(), words[1].data(), words[2].data(), nullptr };
    record("/bin/sh", arguments);
}

} // namespace

extern "C" {

int execve(const char* path, char* const arguments[], char* const environment[])
{
    record(path, arguments);
    return original<int(const char*, char* const[], char* const[])>("execve")(path, arguments, environment);
}

int execv(const char* path, char* const arguments[])
{
    record(path, arguments);
    return original<int(const char*, char* const[])>("execv")(path, arguments);
}

int execvp(const char* file, char* const arguments[])
{
    record(file, arguments);
    return original<int(const char*, char* const[])>("execvp")(file, arguments);
}

int execvpe(const char* file, char* const arguments[], char* const environment[])
{
    record(file, arguments);
    return original<int(const char*, char* const[], char* const[])>("execvpe")(file, arguments, environment);
}

int posix_spawn(pid_t* process, const char* path, const posix_spawn_file_actions_t* actions,
                const posix_spawnattr_t* attributes, char* const arguments[], char* const environment[])
{
    record(path, arguments);
    return original<decltype(posix_spawn)>("posix_spawn")(process, path, actions, attributes, arguments, environment);
}

int posix_spawnp(pid_t* process, const char* file, const posix_spawn_file_actions_t* actions,
                 const posix_spawnattr_t* attributes, char* const arguments[], char* const environment[])
{
    record(file, arguments);
    return original<decltype(posix_spawnp)>("posix_spawnp")(process, file, actions, attributes, arguments, environment);
}

int system(const char* command)
{
    recordShell(command);
    return original<int(const char*)>("system")(command);
}

FILE* popen(const char* command, const char* type)
{
    recordShell(command);
    return original<FILE*(const char*, const char*)>("popen")(command, type);
}

} // extern "C"
