#pragma once

#include <memory>
#include <utility>

namespace nookle {

/// Disables closures that outlive their object. The object has a `Lifetime` as its last member, so that it is destroyed
/// first. Main thread only; a guarded closure may be copied and destroyed on any thread.
class Lifetime final {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    /// A closure that calls `work`, and does nothing once the object is destroyed.
    template <typename Work> [[nodiscard]] auto guarded(Work work) const
    {
        return [token = std::weak_ptr<const bool>(m_token), work = std::move(work)](auto&&... arguments) mutable {
            if (!token.expired())
                work(std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    std::shared_ptr<const bool> m_token = std::make_shared<const bool>(true);
};

} // namespace nookle
