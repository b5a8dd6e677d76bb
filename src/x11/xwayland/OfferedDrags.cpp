#include "OfferedDrags.h"

#include "MainQueue.h"

#include <utility>

namespace nookle {

namespace {

inline constexpr double timeBetweenQuestions = 0.25;

/// A drag whose end was never noticed is forgotten after this time, in seconds.
inline constexpr double longestDrag = 300;

} // namespace

OfferedDrags::OfferedDrags(DragOffers& offers, MainQueue& queue)
    : m_offers(offers)
    , m_queue(queue)
{
    m_offers.onOwnerChanged = [this](DragOwner owner) { ownerChanged(owner); };
    m_offers.onAnswered = [this](bool isOffered) { answered(isOffered); };
}

OfferedDrags::~OfferedDrags()
{
    m_offers.onOwnerChanged = [](DragOwner) {};
    m_offers.onAnswered = [](bool) {};
}

void OfferedDrags::end()
{
    m_questions.reset();
    m_longestDrag.reset();
    setState(State::none);
}

// The source of a drag is never asked if it is an X11 program: many go on offering the content after the drag. This
// program must not be asked because the answer would come from the middle of its own drag.
void OfferedDrags::ownerChanged(DragOwner owner)
{
    end();
    if (owner == DragOwner::none || owner == DragOwner::thisProgram)
        return;
    m_longestDrag = m_queue.after(longestDrag, [this] { end(); });
    if (owner == DragOwner::compositor)
        m_questions = m_queue.every(timeBetweenQuestions, [this] { m_offers.ask(); });
    setState(State::begun);
}

void OfferedDrags::answered(bool isOffered)
{
    if (!m_questions)
        return;
    if (isOffered)
        setState(State::answered);
    else if (m_state == State::answered)
        end();
}

void OfferedDrags::setState(State state)
{
    const bool wasUnderWay = isUnderWay();
    m_state = state;
    if (isUnderWay() != wasUnderWay && onChanged)
        onChanged();
}

} // namespace nookle
