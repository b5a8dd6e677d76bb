#include "ForgottenDrags.h"

#include "MainQueue.h"

#include <utility>

namespace nookle {

namespace {

/// In seconds.
inline constexpr double longestDrag = 300;

} // namespace

ForgottenDrags::ForgottenDrags(std::unique_ptr<ForeignDrags> drags, MainQueue& queue)
    : m_drags(std::move(drags))
    , m_queue(queue)
{
    m_drags->onChanged = [this] { changed(); };
}

ForgottenDrags::~ForgottenDrags() = default;

void ForgottenDrags::changed()
{
    m_limit = m_drags->isUnderWay() ? m_queue.after(longestDrag, [this] { m_drags->end(); }) : nullptr;
    if (onChanged)
        onChanged();
}

} // namespace nookle
