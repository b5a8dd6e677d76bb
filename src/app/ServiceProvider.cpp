#include "ServiceProvider.h"

#include "ShelfStore.h"

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
        return Failure{ tr("Nothing found that can be added to the shelf.") };
    m_onAdded();
    return std::nullopt;
}

} // namespace nookle
