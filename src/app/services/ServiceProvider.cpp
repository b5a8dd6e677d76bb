#include "ServiceProvider.h"

#include "ShelfStore.h"

#include <algorithm>
#include <utility>

namespace nookle {

ServiceProvider::ServiceProvider(ShelfStore& store, std::function<void()> onAdded)
    : m_store(store)
    , m_onAdded(std::move(onAdded))
{
}

std::optional<Failure> ServiceProvider::addToShelf(const ServicePasteboard& pasteboard)
{
    return pasteboard.fileUrls.isEmpty() ? add({}, pasteboard.strings) : add(pasteboard.fileUrls, {});
}

std::optional<Failure> ServiceProvider::open(const AddressList& list)
{
    return add(list.fileUrls, list.pages);
}

std::optional<Failure> ServiceProvider::add(const QList<QUrl>& files, const QStringList& texts)
{
    if (files.isEmpty() && texts.isEmpty())
        return Failure{ tr("Nothing found that can be added to the shelf.") };
    m_store.changeTogether([&] {
        // The item that is added last is on top.
        std::for_each(texts.crbegin(), texts.crend(), [this](const QString& text) { m_store.addText(text); });
        m_store.addFiles(files);
    });
    m_onAdded();
    return std::nullopt;
}

} // namespace nookle
