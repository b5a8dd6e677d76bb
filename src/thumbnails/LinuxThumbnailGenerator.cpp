#include "LinuxThumbnailGenerator.h"

#include "FileUrl.h"
#include "MainQueue.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace nookle {

namespace {

// The maximum side of a thumbnail, in pixels.
inline constexpr double largestSide = 1024;

[[nodiscard]] int sideInPixels(double size, double scale)
{
    const double side = std::floor(size * scale);
    return std::isfinite(side) ? static_cast<int>(std::clamp(side, 1.0, largestSide)) : 1;
}

} // namespace

LinuxThumbnailGenerator::LinuxThumbnailGenerator(MainQueue& queue, ImageDecoder& decoder, ThumbnailCache cache,
                                                 std::vector<std::unique_ptr<ThumbnailMaker>> makers)
    : m_queue(queue)
    , m_decoder(decoder)
    , m_cache(std::move(cache))
    , m_makers(std::move(makers))
{
}

LinuxThumbnailGenerator::~LinuxThumbnailGenerator() = default;

std::unique_ptr<Cancellable> LinuxThumbnailGenerator::request(const QUrl& file, double size, double scale,
                                                              Completion completion)
{
    const Id id = ++m_lastId;
    const ThumbnailJob::Tools tools{ m_decoder, m_cache, m_makers };
    auto job = std::make_unique<ThumbnailJob>(tools, standardizedPath(file), sideInPixels(size, scale));
    m_entries.emplace(id, Entry{ std::move(job), std::move(completion) });
    m_waiting.insert(id);
    schedulePump();
    return std::make_unique<Cancellable>(m_lifetime.guarded([this, id] { drop(id); }));
}

void LinuxThumbnailGenerator::schedulePump()
{
    if (std::exchange(m_isPumpScheduled, true))
        return;
    m_queue.post(m_lifetime.guarded([this] { pump(); }));
}

void LinuxThumbnailGenerator::pump()
{
    m_isPumpScheduled = false;
    while (!m_waiting.empty() && m_decoding.size() < mostDecoding)
        decode(*m_waiting.rbegin());
    while (!m_waitingForMakers.empty() && m_making.size() < mostMaking)
        askMakers(*m_waitingForMakers.rbegin());
}

void LinuxThumbnailGenerator::decode(Id id)
{
    m_waiting.erase(id);
    m_decoding.insert(id);
    m_entries.at(id).job->decode([this, id](std::optional<Picture> picture) {
        m_decoding.erase(id);
        if (picture || !m_entries.at(id).job->canAskMakers()) {
            finish(id, std::move(picture));
            return;
        }
        m_waitingForMakers.insert(id);
        schedulePump();
    });
}

void LinuxThumbnailGenerator::askMakers(Id id)
{
    m_waitingForMakers.erase(id);
    m_making.insert(id);
    m_entries.at(id).job->askMakers([this, id](std::optional<Picture> picture) { finish(id, std::move(picture)); });
}

void LinuxThumbnailGenerator::finish(Id id, std::optional<Picture> picture)
{
    const Completion completion = std::move(m_entries.at(id).completion);
    drop(id);
    completion(std::move(picture));
}

void LinuxThumbnailGenerator::drop(Id id)
{
    // The job is destroyed at the end of this function, because this may be called from within it.
    const auto entry = m_entries.extract(id);
    if (entry.empty())
        return;
    for (std::set<Id>* ids : { &m_waiting, &m_decoding, &m_waitingForMakers, &m_making })
        ids->erase(id);
    schedulePump();
}

} // namespace nookle
