#include "CarriedItem.h"

#include "FileUrl.h"
#include "ShelfStore.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace nookle {

namespace {

[[nodiscard]] bool hasFile(const ShelfItem& item)
{
    return std::holds_alternative<FileContent>(item.content) || std::holds_alternative<ImageContent>(item.content);
}

[[nodiscard]] bool isText(const CarriedItem& carried)
{
    return std::holds_alternative<TextContent>(carried.item.content);
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

} // namespace

std::optional<QUrl> presentFile(const ShelfItem& item, const ShelfStore& store)
{
    std::optional<QUrl> file = store.localURL(item);
    std::error_code ignored;
    const bool isGone = file && std::holds_alternative<ImageContent>(item.content)
        && !std::filesystem::exists(filePath(*file).toStdString(), ignored);
    return isGone ? std::nullopt : file;
}

QList<CarriedItem> presentItems(const QList<ShelfItem>& items, const ShelfStore& store)
{
    QList<CarriedItem> present;
    for (const ShelfItem& item : items) {
        const std::optional<QUrl> file = presentFile(item, store);
        if (file || !hasFile(item))
            present.append({ item, file });
    }
    return present;
}

QList<QUrl> filesOf(const QList<CarriedItem>& items)
{
    QList<QUrl> files;
    for (const CarriedItem& carried : items) {
        if (carried.file)
            files.append(*carried.file);
    }
    return files;
}

QString textOf(const QList<CarriedItem>& items)
{
    const bool hasTexts = std::any_of(items.begin(), items.end(), isText);
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

} // namespace nookle
