#include "FileArguments.h"

#include "FileUrl.h"
#include "UriList.h"

#include <sys/stat.h>

namespace nookle {

namespace {

[[nodiscard]] bool exists(const QByteArray& path)
{
    // A link that leads nowhere is there, too.
    struct stat status {};
    return ::lstat(path.constData(), &status) == 0;
}

} // namespace

FileArguments FileArguments::parse(const QList<QByteArray>& arguments, const QByteArray& workingDirectory)
{
    FileArguments result;
    for (const QByteArray& argument : arguments) {
        const QByteArray path = argument.startsWith('/') ? argument : workingDirectory + '/' + argument;
        if (!argument.isEmpty() && exists(path)) {
            result.uris.append(QString::fromLatin1(standardized(fileUrl(path)).toEncoded()));
            continue;
        }
        if (const auto address = uriAddress(argument))
            result.uris.append(*address);
        else
            result.unknown.append(argument);
    }
    return result;
}

} // namespace nookle
