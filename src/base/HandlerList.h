#pragma once

#include "Cancellable.h"

#include <functional>
#include <memory>
#include <vector>

namespace nookle {

/// Handlers of an event, each installed for as long as its object lives. Main thread only.
class HandlerList final {
public:
    using Handler = std::function<void()>;

    /// Installs `handler` as long as the returned object lives, which may outlive the list.
    [[nodiscard]] std::unique_ptr<Cancellable> add(Handler handler);

    /// Calls all handlers, in the order in which they were installed. A handler may remove itself and others, and
    /// install more, which are not called this time.
    void call();

    /// Whether no handler is installed.
    [[nodiscard]] bool isEmpty() const;

private:
    std::vector<std::weak_ptr<Handler>> m_handlers;
};

} // namespace nookle
