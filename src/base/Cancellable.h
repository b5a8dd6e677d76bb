#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace nookle {

/// A running operation or an installed handler. Destroying this object ends it; its own work or completion may do that.
class Cancellable final {
public:
    /// `cancel` runs once, in the destructor.
    explicit Cancellable(std::function<void()> cancel)
        : m_cancel(std::move(cancel))
    {
    }
    ~Cancellable() { m_cancel(); }
    Cancellable(const Cancellable&) = delete;
    Cancellable& operator=(const Cancellable&) = delete;

    /// An object that keeps `thing` until it is destroyed itself; null if `thing` is null.
    template <typename Thing> [[nodiscard]] static std::unique_ptr<Cancellable> keeping(std::shared_ptr<Thing> thing)
    {
        if (!thing)
            return nullptr;
        return std::make_unique<Cancellable>([thing = std::move(thing)]() mutable { thing.reset(); });
    }

private:
    std::function<void()> m_cancel;
};

} // namespace nookle
