#pragma once

#include <memory>
#include <utility>

namespace nookle {

/// A member of an object whose closures may outlive it. It is declared last, so that it ends first. Main thread only;
/// a guarded closure may be copied and destroyed on any thread.
class Lifetime final {
public:
    Lifetime() = default;
    Lifetime(const Lifetime&) = delete;
    Lifetime& operator=(const Lifetime&) = delete;

    /// `work`, which does nothing any more once the object is gone.
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
