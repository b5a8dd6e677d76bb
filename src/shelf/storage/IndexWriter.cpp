#include "IndexWriter.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace nookle {

namespace {

/// In seconds. Polled, because the thread may outlive the main queue and so cannot post to it.
constexpr double lookInterval = 0.1;

/// In bytes. For each full multiple of this size, the timeout grows by `patience`, so that a slow disk does not count
/// as hanging.
constexpr qsizetype patienceSize = 100'000'000;

} // namespace

struct IndexWriter::Run {
    std::mutex mutex;
    std::condition_variable changed;
    std::chrono::milliseconds patience{};
    bool isFinished = false;
    std::optional<Failure> failure;
};

IndexWriter::IndexWriter(Write write, MainQueue& queue, std::chrono::milliseconds patience)
    : m_write(std::move(write))
    , m_queue(queue)
    , m_patience(patience)
{
}

IndexWriter::~IndexWriter()
{
    static_cast<void>(finish());
}

void IndexWriter::write(ShelfIndex index)
{
    if (isBusy())
        m_next = std::move(index);
    else
        start(std::move(index));
}

void IndexWriter::start(ShelfIndex index)
{
    m_run = std::make_shared<Run>();
    m_run->patience = m_patience * (1 + ShelfIndex::upperBound(index.items) / patienceSize);
    const auto work = [run = m_run, write = m_write, index = std::move(index)] {
        std::optional<Failure> failure = write(index);
        const std::lock_guard lock(run->mutex);
        run->failure = std::move(failure);
        run->isFinished = true;
        run->changed.notify_all();
    };
    try {
        std::thread(work).detach();
    } catch (const std::system_error&) {
        // No thread can be started.
        work();
    }
    if (!m_timer)
        m_timer = m_queue.every(lookInterval, [this] { look(); });
}

void IndexWriter::look()
{
    {
        const std::lock_guard lock(m_run->mutex);
        if (!m_run->isFinished)
            return;
    }
    const std::optional<Failure> failure = takeResult();
    if (failure && onFailed)
        onFailed(*failure);
}

std::optional<Failure> IndexWriter::takeResult()
{
    const std::shared_ptr<Run> run = std::exchange(m_run, nullptr);
    m_hasGivenUp = false;
    if (!run->failure && onWritten)
        onWritten();
    if (m_next)
        start(*std::exchange(m_next, std::nullopt));
    else
        m_timer.reset();
    return run->failure;
}

std::optional<Failure> IndexWriter::finish()
{
    std::optional<Failure> failure;
    while (m_run) {
        {
            std::unique_lock lock(m_run->mutex);
            // After a timeout, do not wait for the same disk again.
            const auto patience = m_hasGivenUp ? std::chrono::milliseconds(0) : m_run->patience;
            if (!m_run->changed.wait_for(lock, patience, [this] { return m_run->isFinished; })) {
                m_hasGivenUp = true;
                return translatedFailure(QT_TRANSLATE_NOOP("nookle::Failure", "the disk does not answer"));
            }
        }
        failure = takeResult();
    }
    return failure;
}

} // namespace nookle
