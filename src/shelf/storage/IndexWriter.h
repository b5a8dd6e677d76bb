#pragma once

#include "Failure.h"
#include "MainQueue.h"
#include "ShelfIndex.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// Writes indexes on a worker thread, one after the other, so that the main thread need not wait. Main thread only.
class IndexWriter {
public:
    /// Writes one index, on the worker thread. If the disk does not answer, the thread may outlive this object, so the
    /// function must own all data that it uses.
    using Write = std::function<std::optional<Failure>(const ShelfIndex&)>;

    /// `patience` is the timeout of `finish` for an index; a large index gets a longer one.
    IndexWriter(Write write, MainQueue& queue, std::chrono::milliseconds patience);

    /// Calls `finish`.
    ~IndexWriter();
    IndexWriter(const IndexWriter&) = delete;
    IndexWriter& operator=(const IndexWriter&) = delete;

    /// Writes the index, after the one that is being written. It replaces an index that still waits.
    void write(ShelfIndex index);

    /// Waits until everything is written or the timeout is over. Returns the reason if the last index was not written.
    [[nodiscard]] std::optional<Failure> finish();

    [[nodiscard]] bool isBusy() const { return m_run != nullptr; }

    /// Called when an index was written, before the next one is begun. Set by the owner.
    std::function<void()> onWritten;

    /// Called when writing an index failed outside of `finish`. Set by the owner.
    std::function<void(const Failure&)> onFailed;

private:
    struct Run;

    void start(ShelfIndex index);
    void look();
    /// Handles the result of a finished run, and starts the next one.
    [[nodiscard]] std::optional<Failure> takeResult();

    Write m_write;
    MainQueue& m_queue;
    std::chrono::milliseconds m_patience;
    bool m_hasGivenUp = false;
    std::shared_ptr<Run> m_run;
    std::optional<ShelfIndex> m_next;
    std::unique_ptr<Cancellable> m_timer;
};

} // namespace nookle
