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
    if (!pasteboard.fileUrls.isEmpty())
        m_store.addFiles(pasteboard.fileUrls);
    else if (pasteboard.string)
        m_store.addText(*pasteboard.string);
    else
        return nothingFound();
    m_onAdded();
    return std::nullopt;
}

std::optional<Failure> ServiceProvider::open(const AddressList& list)
{
    if (list.fileUrls.isEmpty() && list.pages.isEmpty())
        return nothingFound();
    m_store.changeTogether([&] {
        // The item that is added last is on top.
        std::for_each(list.pages.crbegin(), list.pages.crend(), [this](const QString& page) { m_store.addText(page); });
        m_store.addFiles(list.fileUrls);
    });
    m_onAdded();
    return std::nullopt;
}

Failure ServiceProvider::nothingFound()
{
    return Failure{ tr("Nothing found that can be added to the shelf.") };
}

} // namespace nookle
