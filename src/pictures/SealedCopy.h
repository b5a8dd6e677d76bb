#pragma once

#include "RegularFile.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// A file being copied into memory where nobody can change it, on a thread of its own, because a disk may be slow and a
/// server may never answer. Destroying it drops the copy; nothing waits for the thread, which ends when it can. Main
/// thread only, in an event loop.
class SealedCopy final {
public:
    using Completion = std::function<void(std::optional<RegularFile>)>;

    /// So many files may keep their threads waiting. More get no copy.
    inline static constexpr int mostThreads = 8;

    /// `completion` is called once, after this call has returned, with nothing for a file of more than `longest` bytes
    /// and for one that cannot be read. It may destroy this object.
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
    /// Where the thread's message arrives.
    QObject m_context;
    std::shared_ptr<Order> m_order;
};

} // namespace nookle
