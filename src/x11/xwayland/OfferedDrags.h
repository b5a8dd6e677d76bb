#pragma once

#include "DragOffers.h"
#include "ForeignDrags.h"

#include <memory>

namespace nookle {

class Cancellable;
class MainQueue;

/// Follows the drags of other programs. Nobody tells when a drag ends elsewhere, so that is asked again and again. Main
/// thread only.
class OfferedDrags final : public ForeignDrags {
public:
    /// The arguments must outlive this object.
    OfferedDrags(DragOffers& offers, MainQueue& queue);
    ~OfferedDrags() override;
    OfferedDrags(const OfferedDrags&) = delete;
    OfferedDrags& operator=(const OfferedDrags&) = delete;

    [[nodiscard]] bool watch() override { return true; }
    void dragCame() override {}
    [[nodiscard]] bool isUnderWay() const override { return m_state != State::none; }
    void end() override;

    /// Whether the end of the present drag will be noticed wherever it ends.
    [[nodiscard]] bool isKnownToGoOn() const { return m_state == State::answered; }

private:
    enum class State {
        none,
        begun,
        /// Somebody has said that the drag goes on, so a "no" means its end. Not all compositors say so.
        answered,
    };

    void ownerChanged(DragOwner owner);
    void answered(bool goesOn);
    void setState(State state);

    DragOffers& m_offers;
    MainQueue& m_queue;
    State m_state = State::none;
    std::unique_ptr<Cancellable> m_questions;
    std::unique_ptr<Cancellable> m_longestDrag;
};

} // namespace nookle
