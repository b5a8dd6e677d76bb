#pragma once

#include <functional>

namespace nookle {

/// Tells of changes of the shelf; of changes that are made together only once, after all of them. Main thread only.
class ChangeNotices final {
public:
    /// Called when the URLs of files or the items have changed. Set by the owner.
    std::function<void()> onUrlsChanged;
    std::function<void()> onItemsChanged;

    /// Calls `changes`, and afterwards tells what they have changed. May be nested.
    void together(const std::function<void()>& changes);

    void urlsChanged();
    void itemsChanged();

private:
    int m_depth = 0;
    bool m_haveUrlsChanged = false;
    bool m_haveItemsChanged = false;
};

} // namespace nookle
