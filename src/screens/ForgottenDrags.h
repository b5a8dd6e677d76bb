#pragma once

#include "ForeignDrags.h"

#include <memory>

namespace nookle {

class Cancellable;
class MainQueue;

/// Drags of which each is forgotten after five minutes, because its end may have been told to nobody. Main thread only.
class ForgottenDrags final : public ForeignDrags {
public:
    /// `queue` must outlive this object.
    ForgottenDrags(std::unique_ptr<ForeignDrags> drags, MainQueue& queue);
    ~ForgottenDrags() override;
    ForgottenDrags(const ForgottenDrags&) = delete;
    ForgottenDrags& operator=(const ForgottenDrags&) = delete;

    [[nodiscard]] bool watch() override { return m_drags->watch(); }
    void dragCame() override { m_drags->dragCame(); }
    [[nodiscard]] bool isUnderWay() const override { return m_drags->isUnderWay(); }
    [[nodiscard]] bool isOfX11Program() const override { return m_drags->isOfX11Program(); }
    void end() override { m_drags->end(); }

private:
    void changed();

    std::unique_ptr<ForeignDrags> m_drags;
    MainQueue& m_queue;
    std::unique_ptr<Cancellable> m_limit;
};

} // namespace nookle
