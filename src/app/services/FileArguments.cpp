#include "FileArguments.h"

#include "FileUrl.h"
#include "UriList.h"

#include <sys/stat.h>

namespace nookle {

namespace {

[[nodiscard]] bool exists(const QByteArray& path)
{
    // A link without a target exists too.
    struct stat status {};
    return ::lstat(path.constData(), &status) == 0;
}

} // namespace

FileArguments FileArguments::parse(const QList<QByteArray>& arguments, const QByteArray& workingDirectory,
                                   const std::function<bool(const QByteArray& path)>& mayLookAt)
{
    FileArguments result;
    for (const QByteArray& argument : arguments) {
        const QByteArray path = argument.startsWith('/') ? argument : workingDirectory + '/' + argument;
        const bool mayLook = mayLookAt(path);
        const bool isFile = !argument.isEmpty() && mayLook && exists(path);
        const auto address = isFile ? std::nullopt : uriAddress(argument);
        if (address)
            result.uris.append(*address);
        else if (isFile || (!argument.isEmpty() && !mayLook))
            result.uris.append(QString::fromLatin1(standardized(fileUrl(path)).toEncoded()));
        else
            result.unknown.append(argument);
    }
    return result;
}

} // namespace nookle
