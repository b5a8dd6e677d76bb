#pragma once

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace nookle {

/// A session bus of a test's own. It can start the services in `servicesFolder`, which it makes; none without.
class PrivateBus {
public:
    explicit PrivateBus(const QString& servicesFolder = {})
    {
        const QString configuration = m_folder.filePath(QStringLiteral("bus.conf"));
        QFile file(configuration);
        if (!file.open(QIODevice::WriteOnly))
            return;
        QByteArray services;
        if (!servicesFolder.isEmpty() && QDir().mkpath(servicesFolder))
            services = "<servicedir>" + servicesFolder.toUtf8() + "</servicedir>";
        file.write("<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN\" "
                   "\"http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd\">\n"
                   "<busconfig><type>session</type><listen>unix:path="
                   + m_folder.filePath(QStringLiteral("bus")).toUtf8() + "</listen>" + services
                   + "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/>"
                     "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>\n");
        file.close();
        m_daemon.start(QStringLiteral("dbus-daemon"),
                       { QStringLiteral("--nofork"), QStringLiteral("--print-address"), QStringLiteral("--config-file"),
                         configuration });
        if (m_daemon.waitForReadyRead())
            m_address = m_daemon.readAllStandardOutput().trimmed();
    }
    ~PrivateBus()
    {
        m_daemon.kill();
        m_daemon.waitForFinished();
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;

    /// Empty when it does not run.
    [[nodiscard]] QByteArray address() const { return m_address; }

private:
    QTemporaryDir m_folder;
    QProcess m_daemon;
    QByteArray m_address;
};

} // namespace nookle
