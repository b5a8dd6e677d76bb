#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace nookle {

/// Something that is under way or installed. Destroying this ends it, also from within its own work or completion.
class Cancellable final {
public:
    /// `cancel` runs once, at the end of this object.
    explicit Cancellable(std::function<void()> cancel)
        : m_cancel(std::move(cancel))
    {
    }
    ~Cancellable() { m_cancel(); }
    Cancellable(const Cancellable&) = delete;
    Cancellable& operator=(const Cancellable&) = delete;

    /// Keeps `thing` until it is destroyed itself; null for null.
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
