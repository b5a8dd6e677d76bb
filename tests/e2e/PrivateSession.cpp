#include "PrivateSession.h"

#include "Waiting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>

namespace nookle::e2e {

PrivateSession::PrivateSession()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    setUpHome();
}

// Files whose names are not UTF-8 are beyond the temporary folder's own removal, and services that the bus has started
// write for a moment longer than the bus lives.
PrivateSession::~PrivateSession()
{
    m_bus.reset();
    std::error_code ignored;
    std::filesystem::remove_all(home(QStringLiteral("files")).toStdString(), ignored);
    if (!waitFor([this] { return m_home.remove(); }))
        qWarning("%s is left behind", qPrintable(m_home.path()));
}

void PrivateSession::setUpHome()
{
    const QStringList folders{ QStringLiteral("data"), QStringLiteral("config"), QStringLiteral("cache"),
                               QStringLiteral("runtime"), QStringLiteral("files") };
    for (const QString& folder : folders)
        QDir().mkpath(home(folder));
    QFile::setPermissions(home(QStringLiteral("runtime")), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment.insert(QStringLiteral("HOME"), m_home.path());
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), home(QStringLiteral("data")));
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), home(QStringLiteral("config")));
    m_environment.insert(QStringLiteral("XDG_CACHE_HOME"), home(QStringLiteral("cache")));
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home(QStringLiteral("runtime")));
    // Its programs are for its own display.
    m_environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
}

// The usual configuration of a session bus lets it start every service of the machine.
QByteArray PrivateSession::busConfiguration() const
{
    QByteArray serviceFolders;
    for (const QString& data : m_environment.value(QStringLiteral("XDG_DATA_DIRS")).split(QLatin1Char(':')))
        serviceFolders += QByteArray("<servicedir>" + data.toUtf8() + "/dbus-1/services</servicedir>");
    return "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\" "
           "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
           "<busconfig><type>session</type><listen>unix:path="
        + home(QStringLiteral("runtime/bus")).toUtf8() + "</listen>" + serviceFolders
        + "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
          "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n";
}

bool PrivateSession::startBus()
{
    writeFile(QStringLiteral("bus.conf"), busConfiguration());
    m_bus = start(QStringLiteral("dbus-daemon"),
                  { QStringLiteral("--config-file"), home(QStringLiteral("bus.conf")), QStringLiteral("--nofork"),
                    QStringLiteral("--print-address=1") });
    const QByteArray address = m_bus->readLine();
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), QString::fromLatin1(address));
    if (address.isEmpty())
        qWarning("no session bus: %s", m_bus->log().constData());
    return !address.isEmpty();
}

void PrivateSession::writeFile(const QString& path, const QByteArray& content) const
{
    QFile file(home(path));
    QDir().mkpath(QFileInfo(file).path());
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qWarning("cannot write %s", qPrintable(file.fileName()));
}

void PrivateSession::preload(const QString& library)
{
    setVariable(QStringLiteral("LD_PRELOAD"), library);
    // A library that is loaded before theirs is what the sanitizers object to.
    setVariable(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("verify_asan_link_order=0:detect_leaks=0"));
}

std::unique_ptr<Program> PrivateSession::start(const QString& path, const QStringList& arguments) const
{
    return std::make_unique<Program>(path, arguments, m_environment);
}

} // namespace nookle::e2e
