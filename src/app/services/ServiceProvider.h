#pragma once

#include "Failure.h"
#include "ServicePasteboard.h"

#include <QCoreApplication>

#include <functional>
#include <optional>

namespace nookle {

class ShelfStore;

/// Adds to the shelf what other programs hand over. Main thread only.
class ServiceProvider final {
    Q_DECLARE_TR_FUNCTIONS(nookle::ServiceProvider)

public:
    /// `store` must outlive this object. `onAdded` is called after the store got something to add, even if it refused
    /// that.
    ServiceProvider(ShelfStore& store, std::function<void()> onAdded);

    /// Adds the files, or else the texts, in their order. When there is neither, returns a failure with a text for the
    /// user.
    [[nodiscard]] std::optional<Failure> addToShelf(const ServicePasteboard& pasteboard);

    /// Adds all files and pages of a list: the files on top, the pages below, each in the order of the list. When the
    /// list is empty, returns a failure with a text for the user.
    [[nodiscard]] std::optional<Failure> open(const AddressList& list);

private:
    std::optional<Failure> add(const QList<QUrl>& files, const QStringList& texts);

    ShelfStore& m_store;
    std::function<void()> m_onAdded;
};

} // namespace nookle
