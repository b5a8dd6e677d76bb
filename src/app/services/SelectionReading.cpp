#include "SelectionReading.h"

#include "DropText.h"
#include "Pasteboard.h"
#include "UriList.h"

namespace nookle {

ServicePasteboard readSelection(const Pasteboard& pasteboard)
{
    const auto selection = pasteboard.selection();
    QStringList uris;
    for (const QString& address : uriListAddresses(selection->data(QStringLiteral("text/uri-list"))))
        uris.append(address);
    return servicePasteboard(uris, loadDropText(*selection).value_or(QString()));
}

} // namespace nookle
