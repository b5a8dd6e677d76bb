#pragma once

#include "RegularFile.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// Copies a file into sealed memory, which nobody can change. Each copy has its own thread, because a disk may be slow
/// and a server may never answer. Destroying it cancels the copy. It does not wait for the thread, which ends when its
/// current read returns. Main thread only, with a running event loop.
class SealedCopy final {
public:
    using Completion = std::function<void(std::optional<RegularFile>)>;

    /// The maximum number of copies that run at the same time. A further copy fails.
    inline static constexpr int mostThreads = 8;

    /// `completion` is called once, after this call has returned. It gets none for a file of more than `longest` bytes,
    /// or one that cannot be read. It may destroy this object.
    SealedCopy(RegularFile file, qint64 longest, Completion completion);
    ~SealedCopy();
    SealedCopy(const SealedCopy&) = delete;
    SealedCopy& operator=(const SealedCopy&) = delete;

private:
    struct Order;

    [[nodiscard]] static bool start(const std::shared_ptr<Order>& order);
    static void run(const std::shared_ptr<Order>& order);
    void finish(const std::shared_ptr<Order>& order);

    Completion m_completion;
    /// Receives the thread's message.
    QObject m_context;
    std::shared_ptr<Order> m_order;
};

} // namespace nookle
