#include "TrashWatch.h"

#include "FileReferences.h"
#include "Trash.h"

#include <array>
#include <utility>

namespace nookle {

namespace {

/// The pauses between checks, in seconds.
inline constexpr std::array pauses{ 0.2, 0.5, 1.3, 3.0 };

} // namespace

TrashWatch::TrashWatch(FileReferences& references, const Trash& trash, MainQueue& queue)
    : m_references(references)
    , m_trash(trash)
    , m_queue(queue)
{
}

void TrashWatch::begin(std::vector<QByteArray> references)
{
    end();
    m_watched = std::move(references);
}

QSet<QByteArray> TrashWatch::takeTrashed()
{
    const auto files = m_references.resolveAll(m_watched);
    QSet<QByteArray> trashed;
    for (std::size_t index = 0; index < files.size(); ++index) {
        if (files[index] && m_trash.contains(files[index]->url))
            trashed.insert(m_watched[index]);
    }
    std::erase_if(m_watched, [&](const QByteArray& reference) { return trashed.contains(reference); });
    return trashed;
}

void TrashWatch::keepLooking(std::function<void(const QSet<QByteArray>&)> onTrashed)
{
    if (m_watched.empty())
        return;
    m_onTrashed = std::move(onTrashed);
    lookAfter(0);
}

void TrashWatch::lookNow()
{
    static_cast<void>(look());
}

bool TrashWatch::look()
{
    const QSet<QByteArray> trashed = m_onTrashed ? takeTrashed() : QSet<QByteArray>();
    const bool goesOn = m_onTrashed && !m_watched.empty();
    if (trashed.isEmpty())
        return goesOn;
    const auto onTrashed = m_onTrashed;
    if (!goesOn)
        end();
    onTrashed(trashed);
    return goesOn;
}

void TrashWatch::lookAfter(std::size_t pause)
{
    if (pause == pauses.size()) {
        end();
        return;
    }
    m_nextLook = m_queue.after(pauses[pause], [this, pause] {
        if (look())
            lookAfter(pause + 1);
    });
}

void TrashWatch::end()
{
    m_nextLook.reset();
    m_onTrashed = nullptr;
    m_watched.clear();
}

} // namespace nookle
