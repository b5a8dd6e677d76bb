#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <unistd.h>

// Linked into every test. A test sees fonts, icons, file types, settings and services of its own, in a home folder of
// its own, so that neither the user's session nor the programs of the machine change a result.

namespace {

using Variables = std::vector<std::pair<std::string, std::string>>;

/// Set for the programs that a test starts, whose environment is the test's business.
constexpr const char* mark = "NOOKLE_TEST_HOME";

[[nodiscard]] bool isKept(std::string_view name)
{
    constexpr std::array<std::string_view, 2> prefixes{ "NOOKLE_", "QTEST_" };
    constexpr std::array<std::string_view, 5> names{ "ASAN_OPTIONS", "LSAN_OPTIONS", "QT_ENABLE_REGEXP_JIT", "TMPDIR",
                                                     "UBSAN_OPTIONS" };
    return std::any_of(prefixes.begin(), prefixes.end(), [&](auto prefix) { return name.starts_with(prefix); })
        || std::find(names.begin(), names.end(), name) != names.end();
}

[[nodiscard]] Variables keptVariables()
{
    Variables kept;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view variable(*entry);
        const auto end = variable.find('=');
        if (end != std::string_view::npos && isKept(variable.substr(0, end)))
            kept.emplace_back(variable.substr(0, end), variable.substr(end + 1));
    }
    return kept;
}

[[nodiscard]] Variables ownVariables(const std::string& home)
{
    const std::string machine = NOOKLE_TEST_ENVIRONMENT;
    return {
        { mark, home },
        { "HOME", home },
        // The shelf stays hidden at a start.
        { "NOOKLE_START", "login" },
        { "PATH", "/usr/bin:/bin:/usr/sbin:/sbin" },
        { "LANG", "C.UTF-8" },
        { "TZ", "UTC" },
        { "XDG_CACHE_HOME", home + "/cache" },
        { "XDG_CONFIG_HOME", home + "/config" },
        { "XDG_DATA_HOME", home + "/data" },
        { "XDG_RUNTIME_DIR", home + "/runtime" },
        { "XDG_CONFIG_DIRS", machine + "/config" },
        { "XDG_DATA_DIRS", machine + "/data" },
        { "FONTCONFIG_FILE", machine + "/fonts.conf" },
        { "XCURSOR_PATH", machine + "/data/icons" },
        { "QT_QPA_PLATFORM", "offscreen" },
        { "GTK_THEME", "Adwaita" },
        { "GTK2_RC_FILES", "/dev/null" },
        { "GIO_MODULE_DIR", machine + "/modules" },
        { "GIO_USE_VFS", "local" },
        { "GSETTINGS_BACKEND", "memory" },
        { "NO_AT_BRIDGE", "1" },
        { "DBUS_SESSION_BUS_ADDRESS", "unix:path=" + home + "/no-session-bus" },
        { "DBUS_SYSTEM_BUS_ADDRESS", "unix:path=" + home + "/no-system-bus" },
    };
}

/// Empty when it cannot be made.
[[nodiscard]] std::string makeHome()
{
    std::error_code error;
    std::string home = (std::filesystem::temp_directory_path(error) / "nookle-test-XXXXXX").string();
    if (error || mkdtemp(home.data()) == nullptr)
        return {};
    for (const char* folder : { "/cache", "/config", "/data", "/runtime" })
        std::filesystem::create_directory(home + folder, error);
    std::filesystem::permissions(home + "/runtime", std::filesystem::perms::owner_all, error);
    return home;
}

void replaceVariables(const std::string& home)
{
    const Variables kept = keptVariables();
    clearenv();
    for (const Variables& variables : { kept, ownVariables(home) }) {
        for (const auto& [name, value] : variables)
            setenv(name.c_str(), value.c_str(), 1);
    }
}

} // namespace

/// Made before main(), so that no toolkit has looked yet.
class TestEnvironment {
public:
    TestEnvironment()
    {
        if (std::getenv(mark) != nullptr)
            return;
        m_home = makeHome();
        if (m_home.empty()) {
            std::perror("no home folder for the test");
            std::_Exit(EXIT_FAILURE);
        }
        replaceVariables(m_home);
    }
    // A process that the test has forked leaves the folder alone.
    ~TestEnvironment()
    {
        std::error_code ignored;
        if (!m_home.empty() && getpid() == m_owner)
            std::filesystem::remove_all(m_home, ignored);
    }
    TestEnvironment(const TestEnvironment&) = delete;
    TestEnvironment& operator=(const TestEnvironment&) = delete;

private:
    std::string m_home;
    pid_t m_owner = getpid();
};

// The linker is told this name.
TestEnvironment nookleTestEnvironment;
