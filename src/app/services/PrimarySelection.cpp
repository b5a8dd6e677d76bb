#include "PrimarySelection.h"

#include "UriList.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace nookle {

ServicePasteboard readPrimarySelection()
{
    const QMimeData* selection = QGuiApplication::clipboard()->mimeData(QClipboard::Selection);
    if (!selection)
        return {};
    QStringList uris;
    for (const QString& address : uriListAddresses(selection->data(QStringLiteral("text/uri-list"))))
        uris.append(address);
    return servicePasteboard(uris, selection->text());
}

} // namespace nookle
