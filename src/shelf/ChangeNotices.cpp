#include "ChangeNotices.h"

#include <utility>

namespace nookle {

void ChangeNotices::together(const std::function<void()>& changes)
{
    ++m_depth;
    changes();
    if (--m_depth > 0)
        return;
    if (std::exchange(m_haveUrlsChanged, false))
        onUrlsChanged();
    if (std::exchange(m_haveItemsChanged, false))
        onItemsChanged();
}

void ChangeNotices::urlsChanged()
{
    if (m_depth > 0)
        m_haveUrlsChanged = true;
    else
        onUrlsChanged();
}

void ChangeNotices::itemsChanged()
{
    if (m_depth > 0)
        m_haveItemsChanged = true;
    else
        onItemsChanged();
}

} // namespace nookle
