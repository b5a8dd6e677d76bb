#include "ProgramStart.h"

#include "FileUrl.h"

#include <QFile>
#include <QFileInfo>

namespace nookle {

namespace {

inline constexpr const char* reasonVariable = "NOOKLE_START";

/// Set by session managers for the programs that they start with the session.
inline constexpr const char* sessionVariable = "DESKTOP_AUTOSTART_ID";

} // namespace

StartReason startReason(const QByteArray& variable, bool isSessionClient, const QByteArray& controlGroups)
{
    if (variable == "request")
        return StartReason::request;
    // Sessions of systemd name the unit of such a program after its entry.
    if (variable == "login" || isSessionClient || controlGroups.contains("@autostart.service"))
        return StartReason::login;
    return StartReason::user;
}

StartReason takeStartReason()
{
    const QByteArray variable = qgetenv(reasonVariable);
    qunsetenv(reasonVariable);
    QFile groups(QStringLiteral("/proc/self/cgroup"));
    const QByteArray controlGroups = groups.open(QIODevice::ReadOnly) ? groups.readAll() : QByteArray();
    return startReason(variable, qEnvironmentVariableIsSet(sessionVariable), controlGroups);
}

bool isFirstStart(const QUrl& dataFolder, const QString& settingsFile)
{
    const QUrl index = child(dataFolder, QStringLiteral("index.json"));
    return !QFileInfo::exists(QFile::decodeName(filePath(index))) && !QFileInfo::exists(settingsFile);
}

} // namespace nookle
