// Writes down which programs the program that it is loaded into starts, and with what. EXEC_RECORD names the file: for
// each start the number of words, the program, and its words from the first argument on, each with a zero byte after
// it.

#include <dlfcn.h>
#include <fcntl.h>
#include <spawn.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

// A forked child calls these functions, too. If another thread held a lock at the fork, of the heap or of the loader,
// it is held there for ever: nothing is allocated, and the functions are looked up before.
template <typename Function> Function* original(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

const auto originalExecve = original<int(const char*, char* const[], char* const[])>("execve");
const auto originalExecv = original<int(const char*, char* const[])>("execv");
const auto originalExecvp = original<int(const char*, char* const[])>("execvp");
const auto originalExecvpe = original<int(const char*, char* const[], char* const[])>("execvpe");
const auto originalPosixSpawn = original<decltype(posix_spawn)>("posix_spawn");
const auto originalPosixSpawnp = original<decltype(posix_spawnp)>("posix_spawnp");
const auto originalSystem = original<int(const char*)>("system");
const auto originalPopen = original<FILE*(const char*, const char*)>("popen");

/// Words, each with a zero byte after it.
class Words {
public:
    void append(std::string_view word)
    {
        m_fits = m_fits && word.size() < m_bytes.size() - m_size;
        if (!m_fits)
            return;
        word.copy(m_bytes.data() + m_size, word.size());
        m_size += word.size();
        m_bytes[m_size++] = '\0';
    }

    /// In one piece, because several processes may write at a time.
    [[nodiscard]] bool write(int file) const
    {
        return m_fits && ::write(file, m_bytes.data(), m_size) == static_cast<ssize_t>(m_size);
    }

private:
    /// More than one argument may have.
    std::array<char, 256 * 1024> m_bytes;
    std::size_t m_size = 0;
    bool m_fits = true;
};

void record(const char* program, char* const* arguments)
{
    const char* path = std::getenv("EXEC_RECORD");
    if (path == nullptr)
        return;
    int count = 1;
    while (arguments[0] != nullptr && arguments[count] != nullptr)
        ++count;
    std::array<char, 16> number;
    const char* end = std::to_chars(number.data(), number.data() + number.size(), count).ptr;
    Words words;
    words.append(std::string_view(number.data(), static_cast<std::size_t>(end - number.data())));
    words.append(program);
    for (int argument = 1; argument < count; ++argument)
        words.append(arguments[argument]);
    const int file = ::open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
    if (file < 0 || !words.write(file))
        ::abort();
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
    return originalExecve(path, arguments, environment);
}

int execv(const char* path, char* const arguments[])
{
    record(path, arguments);
    return originalExecv(path, arguments);
}

int execvp(const char* file, char* const arguments[])
{
    record(file, arguments);
    return originalExecvp(file, arguments);
}

int execvpe(const char* file, char* const arguments[], char* const environment[])
{
    record(file, arguments);
    return originalExecvpe(file, arguments, environment);
}

int posix_spawn(pid_t* process, const char* path, const posix_spawn_file_actions_t* actions,
                const posix_spawnattr_t* attributes, char* const arguments[], char* const environment[])
{
    record(path, arguments);
    return originalPosixSpawn(process, path, actions, attributes, arguments, environment);
}

int posix_spawnp(pid_t* process, const char* file, const posix_spawn_file_actions_t* actions,
                 const posix_spawnattr_t* attributes, char* const arguments[], char* const environment[])
{
    record(file, arguments);
    return originalPosixSpawnp(process, file, actions, attributes, arguments, environment);
}

int system(const char* command)
{
    recordShell(command);
    return originalSystem(command);
}

FILE* popen(const char* command, const char* type)
{
    recordShell(command);
    return originalPopen(command, type);
}

} // extern "C"
