#include "ServicePasteboard.h"

#include "FileUrl.h"
#include "UriList.h"

namespace nookle {

ServicePasteboard servicePasteboard(const QStringList& uris, const QString& text)
{
    ServicePasteboard pasteboard;
    if (!text.isEmpty())
        pasteboard.string = text;
    for (const QString& uri : uris) {
        const auto address = uriAddress(uri.toUtf8());
        if (!address)
            continue;
        const QUrl url(*address, QUrl::StrictMode);
        if (!filePath(url).isEmpty())
            pasteboard.fileUrls.append(url);
        else if (!isFileAddress(*address) && !pasteboard.string)
            pasteboard.string = *address;
    }
    return pasteboard;
}

} // namespace nookle
