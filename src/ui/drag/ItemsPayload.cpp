#include "ItemsPayload.h"

#include "FilePayload.h"
#include "LinkPayload.h"
#include "TextPayload.h"

#include <algorithm>

namespace nookle {

namespace {

template <typename Content> [[nodiscard]] bool holds(const CarriedItem& carried)
{
    return std::holds_alternative<Content>(carried.item.content);
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

[[nodiscard]] QString textOf(const CarriedItem& carried)
{
    if (carried.file)
        return QString::fromLatin1(carried.file->toEncoded());
    if (const auto* link = std::get_if<LinkContent>(&carried.item.content))
        return link->url.absoluteString();
    const auto* text = std::get_if<TextContent>(&carried.item.content);
    return text ? text->text : QString();
}

[[nodiscard]] QString textOfAll(const QList<CarriedItem>& items)
{
    const bool hasTexts = std::any_of(items.begin(), items.end(), holds<TextContent>);
    QString all;
    for (const CarriedItem& carried : items) {
        if (!all.isEmpty() && !all.endsWith(QLatin1Char('\n')))
            all += QLatin1Char('\n');
        if (!all.isEmpty() && hasTexts)
            all += QLatin1Char('\n');
        all += textOf(carried);
    }
    return all;
}

[[nodiscard]] QList<QUrl> filesOf(const QList<CarriedItem>& items)
{
    QList<QUrl> files;
    for (const CarriedItem& carried : items) {
        if (carried.file)
            files.append(*carried.file);
    }
    return files;
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
    if (std::all_of(items.begin(), items.end(), holds<LinkContent>))
        return linksPayload(linksOf(items));
    DragPayload payload;
    if (const QList<QUrl> files = filesOf(items); !files.isEmpty())
        addFiles(payload, files, transfers);
    addTextOnRequest(payload, [items] { return textOfAll(items); });
    return payload;
}

} // namespace nookle
