#include "Sandbox.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace nookle {

namespace {

// These folders are links into /usr on some systems, and real folders on others.
void addSystemFolder(QStringList& arguments, const QString& folder)
{
    const QFileInfo info(folder);
    if (info.isSymLink())
        arguments << QStringLiteral("--symlink") << info.symLinkTarget() << folder;
    else if (info.isDir())
        arguments << QStringLiteral("--ro-bind") << folder << folder;
}

void addVariable(QStringList& arguments, const QString& name, const QString& value)
{
    arguments << QStringLiteral("--setenv") << name << value;
}

// Passes only the variables that a program needs to find its libraries. The others reveal much about the user.
void addEnvironment(QStringList& arguments)
{
    arguments << QStringLiteral("--clearenv");
    addVariable(arguments, QStringLiteral("HOME"), QStringLiteral("/tmp"));
    addVariable(arguments, QStringLiteral("PATH"), QStringLiteral("/usr/bin:/bin"));
    for (const char* name : { "LANG", "LC_ALL", "LD_LIBRARY_PATH", "QT_PLUGIN_PATH", "ASAN_OPTIONS", "LSAN_OPTIONS" }) {
        if (qEnvironmentVariableIsSet(name))
            addVariable(arguments, QString::fromLatin1(name), qEnvironmentVariable(name));
    }
}

} // namespace

QStringList sandboxArguments()
{
    // No new session for the sandbox, so that all its processes stay in one group that can be killed together. The
    // caller must start the sandbox in a session without a terminal.
    QStringList arguments{ QStringLiteral("--unshare-all"), QStringLiteral("--die-with-parent") };
    for (const char* folder : { "/usr", "/bin", "/sbin", "/lib", "/lib32", "/lib64" })
        addSystemFolder(arguments, QString::fromLatin1(folder));
    for (const char* path : { "/etc/alternatives", "/etc/fonts", "/etc/ld.so.cache", "/var/cache/fontconfig" }) {
        const QString name = QString::fromLatin1(path);
        arguments << QStringLiteral("--ro-bind-try") << name << name;
    }
    arguments << QStringLiteral("--proc") << QStringLiteral("/proc");
    arguments << QStringLiteral("--dev") << QStringLiteral("/dev");
    arguments << QStringLiteral("--tmpfs") << QStringLiteral("/tmp");
    arguments << QStringLiteral("--chdir") << QStringLiteral("/");
    addEnvironment(arguments);
    return arguments;
}

QString sandboxProgram()
{
    return QStandardPaths::findExecutable(QStringLiteral("bwrap"));
}

} // namespace nookle
