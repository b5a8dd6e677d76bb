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

void TrashWatch::begin(const QByteArray& reference)
{
    static_cast<void>(lookNow());
    end();
    m_reference = reference;
}

bool TrashWatch::isInTrash()
{
    const auto found = m_reference.isEmpty() ? std::nullopt : m_references.resolve(m_reference);
    return found && m_trash.contains(found->url);
}

void TrashWatch::keepLooking(std::function<void()> onTrashed)
{
    if (m_reference.isEmpty())
        return;
    m_onTrashed = std::move(onTrashed);
    lookAfter(0);
}

bool TrashWatch::lookNow()
{
    if (!m_onTrashed || !isInTrash())
        return false;
    const auto onTrashed = std::exchange(m_onTrashed, nullptr);
    end();
    onTrashed();
    return true;
}

void TrashWatch::lookAfter(std::size_t pause)
{
    if (pause == pauses.size()) {
        end();
        return;
    }
    m_nextLook = m_queue.after(pauses[pause], [this, pause] {
        if (!lookNow())
            lookAfter(pause + 1);
    });
}

void TrashWatch::end()
{
    m_nextLook.reset();
    m_onTrashed = nullptr;
    m_reference.clear();
}

} // namespace nookle
