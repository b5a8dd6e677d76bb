#pragma once

#include "Failure.h"
#include "MainQueue.h"
#include "ShelfIndex.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace nookle {

/// Has indexes written by a thread, one after the other, so that the main thread need not wait. Main thread only.
class IndexWriter {
public:
    /// Writes one index. Runs on the thread, which a disk that does not answer may keep longer than the program runs:
    /// it may refer to nothing that ends before.
    using Write = std::function<std::optional<Failure>(const ShelfIndex&)>;

    /// `patience` is how long `finish` waits for an index; for a large one it waits longer.
    IndexWriter(Write write, MainQueue& queue, std::chrono::milliseconds patience);

    /// Finishes first.
    ~IndexWriter();
    IndexWriter(const IndexWriter&) = delete;
    IndexWriter& operator=(const IndexWriter&) = delete;

    /// Writes the index after the one that is being written. One that still waits for its turn is left out.
    void write(ShelfIndex index);

    /// Waits until everything is written, and returns why the last index was not.
    [[nodiscard]] std::optional<Failure> finish();

    [[nodiscard]] bool isBusy() const { return m_run != nullptr; }

    /// An index was written. Called before the next one is begun. Set by the owner.
    std::function<void()> onWritten;

    /// An index was not written, and nobody waits for it. Set by the owner.
    std::function<void(const Failure&)> onFailed;

private:
    struct Run;

    void start(ShelfIndex index);
    void look();
    /// Takes the end of a run, and starts the next one.
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
