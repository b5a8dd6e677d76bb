#include "LookupSandbox.h"

namespace nookle {

QStringList lookupSandboxArguments()
{
    QStringList arguments{ QStringLiteral("--share-net") };
    for (const char* path : { "/etc/ca-certificates", "/etc/gai.conf", "/etc/host.conf", "/etc/hosts",
                              "/etc/nsswitch.conf", "/etc/pki", "/etc/resolv.conf", "/etc/services", "/etc/ssl" })
        arguments << QStringLiteral("--ro-bind-try") << QString::fromLatin1(path) << QString::fromLatin1(path);
    return arguments;
}

} // namespace nookle
