#pragma once

#include "Failure.h"
#include "ServicePasteboard.h"

#include <QCoreApplication>

#include <functional>
#include <optional>

namespace nookle {

class ShelfStore;

/// Puts what other programs hand over on the shelf. Main thread only.
class ServiceProvider final {
    Q_DECLARE_TR_FUNCTIONS(ServiceProvider)

public:
    /// `store` must outlive this. `onAdded` is called after something was added.
    ServiceProvider(ShelfStore& store, std::function<void()> onAdded);

    /// Adds the files, or else the text; says for the user what was wrong when there is neither.
    [[nodiscard]] std::optional<Failure> addToShelf(const ServicePasteboard& pasteboard);

    /// Adds all that a user names one by one: the files on top, the pages below, each in the order of the list. Says
    /// for the user what was wrong when there is nothing among it that can be added.
    [[nodiscard]] std::optional<Failure> open(const AddressList& list);

private:
    [[nodiscard]] static Failure nothingFound();

    ShelfStore& m_store;
    std::function<void()> m_onAdded;
};

} // namespace nookle
