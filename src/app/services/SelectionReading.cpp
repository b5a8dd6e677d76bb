#include "SelectionReading.h"

#include "DropPayload.h"
#include "DropText.h"
#include "UriList.h"

namespace nookle {

ServicePasteboard readSelection(const DropPayload& selection)
{
    QStringList uris;
    for (const QString& address : uriListAddresses(selection.data(QStringLiteral("text/uri-list"))))
        uris.append(address);
    return servicePasteboard(uris, loadDropText(selection).value_or(QString()));
}

} // namespace nookle
