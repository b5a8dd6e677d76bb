#include "LostFileSearch.h"

#include "MainQueue.h"
#include "Mounts.h"
#include "TreeSearch.h"

#include <algorithm>
#include <utility>

namespace nookle {

LostFileSearch::LostFileSearch(QByteArray home, std::shared_ptr<Mounts> mounts, MainQueue& queue, Clock now)
    : m_home(std::move(home))
    , m_mounts(std::move(mounts))
    , m_queue(queue)
    , m_now(std::move(now))
{
}

LostFileSearch::~LostFileSearch() = default;

void LostFileSearch::want(const QByteArray& reference, const FileIdentity& identity)
{
    const auto failure = m_failures.find(reference);
    if (failure != m_failures.end() && m_now() - failure->second < pauseAfterFailure)
        return;
    if (std::find(m_searched.begin(), m_searched.end(), reference) != m_searched.end())
        return;
    const bool isFirst = m_wanted.empty();
    m_wanted.insert_or_assign(reference, identity);
    if (isFirst && !m_pass)
        scheduleStart();
}

std::optional<QByteArray> LostFileSearch::found(const QByteArray& reference) const
{
    const auto place = m_found.find(reference);
    return place == m_found.end() ? std::nullopt : std::optional(place->second);
}

void LostFileSearch::forget(const QByteArray& reference)
{
    m_wanted.erase(reference);
    m_found.erase(reference);
    m_failures.erase(reference);
    // The pass goes on, but its result for this reference is ignored.
    std::replace(m_searched.begin(), m_searched.end(), reference, QByteArray());
}

bool LostFileSearch::isSearching() const
{
    return m_pass || !m_wanted.empty();
}

void LostFileSearch::scheduleStart()
{
    m_queue.post(m_lifetime.guarded([this] { start(); }));
}

void LostFileSearch::start()
{
    if (m_wanted.empty() || m_pass)
        return;
    std::vector<FileIdentity> identities;
    for (const auto& [reference, identity] : std::exchange(m_wanted, {})) {
        m_searched.push_back(reference);
        identities.push_back(identity);
    }
    m_pass = std::make_unique<TreeSearch>(m_home, identities, m_mounts, m_queue,
                                          [this](const TreeSearch::Places& places) { finish(places); });
}

void LostFileSearch::finish(const std::vector<std::optional<QByteArray>>& places)
{
    const std::vector<QByteArray> searched = std::exchange(m_searched, {});
    m_pass.reset();
    bool hasFound = false;
    for (std::size_t index = 0; index < searched.size(); ++index) {
        if (searched[index].isEmpty())
            continue;
        if (places[index]) {
            m_found.insert_or_assign(searched[index], *places[index]);
            m_failures.erase(searched[index]);
            hasFound = true;
        } else {
            m_failures.insert_or_assign(searched[index], m_now());
        }
    }
    if (!m_wanted.empty())
        scheduleStart();
    if (hasFound && onFound)
        onFound();
}

} // namespace nookle
