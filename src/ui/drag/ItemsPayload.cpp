#include "ItemsPayload.h"

#include "FilePayload.h"
#include "LinkPayload.h"
#include "TextPayload.h"

#include <algorithm>

namespace nookle {

namespace {

[[nodiscard]] bool isLink(const CarriedItem& carried)
{
    return std::holds_alternative<LinkContent>(carried.item.content);
}

[[nodiscard]] DragPayload payloadOf(const CarriedItem& carried, FileTransfers& transfers)
{
    if (carried.file)
        return filePayload(*carried.file, transfers);
    if (const auto* link = std::get_if<LinkContent>(&carried.item.content))
        return linkPayload(*link);
    const auto* text = std::get_if<TextContent>(&carried.item.content);
    return textPayload(text ? text->text : QString());
}

[[nodiscard]] QList<LinkContent> linksOf(const QList<CarriedItem>& items)
{
    QList<LinkContent> links;
    for (const CarriedItem& carried : items)
        links.append(std::get<LinkContent>(carried.item.content));
    return links;
}

} // namespace

DragPayload itemsPayload(const QList<CarriedItem>& items, FileTransfers& transfers)
{
    if (items.size() == 1)
        return payloadOf(items.first(), transfers);
    DragPayload payload;
    if (const QList<QUrl> files = filesOf(items); !files.isEmpty())
        addFiles(payload, files, transfers);
    else if (std::all_of(items.begin(), items.end(), isLink))
        addLinks(payload, linksOf(items));
    addTextOnRequest(payload, [items] { return textOf(items); });
    return payload;
}

} // namespace nookle
