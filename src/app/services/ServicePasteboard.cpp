#include "ServicePasteboard.h"

#include "FileUrl.h"
#include "UriList.h"

namespace nookle {

ServicePasteboard servicePasteboard(const QStringList& uris, const QString& text)
{
    const AddressList addresses = addressList(uris);
    return { addresses.fileUrls, text.isEmpty() ? addresses.pages : QStringList{ text } };
}

AddressList addressList(const QStringList& uris)
{
    AddressList list;
    for (const QString& uri : uris) {
        const auto address = uriAddress(uri.toUtf8());
        if (!address)
            continue;
        const QUrl url(*address, QUrl::StrictMode);
        if (!filePath(url).isEmpty())
            list.fileUrls.append(url);
        else if (!isFileAddress(*address))
            list.pages.append(*address);
    }
    return list;
}

} // namespace nookle
