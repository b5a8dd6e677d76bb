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
    m_offers.onAnswered = [this](bool goesOn) { answered(goesOn); };
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

// Nobody is asked about this program's own drag: it knows by itself when that ends.
void OfferedDrags::ownerChanged(DragOwner owner)
{
    end();
    if (owner == DragOwner::none || owner == DragOwner::thisProgram)
        return;
    m_longestDrag = m_queue.after(longestDrag, [this] { end(); });
    m_questions = m_queue.every(timeBetweenQuestions, [this] { m_offers.ask(); });
    setState(State::begun);
    // A short drag would otherwise be over before the first answer, and its end would not be known.
    m_offers.ask();
}

void OfferedDrags::answered(bool goesOn)
{
    if (!m_questions)
        return;
    if (goesOn)
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
