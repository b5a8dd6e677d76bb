#pragma once

#include "ThumbnailMaker.h"

#include <QList>

#include <memory>
#include <utility>

namespace nookle {

/// A maker whose thumbnails are done when a test says so.
class FakeThumbnailMaker final : public ThumbnailMaker {
public:
    std::unique_ptr<Cancellable> make(const Wanted& wanted, Completion completion) override
    {
        if (!canMake)
            return nullptr;
        asked.append(wanted);
        m_makings.append(std::make_shared<Completion>(std::move(completion)));
        return std::make_unique<Cancellable>([running = m_makings.constLast()] { *running = nullptr; });
    }

    /// Finishes the thumbnail number `index`, from 0. False when it was finished or dropped before.
    bool finish(qsizetype index, std::optional<Made> made)
    {
        const Completion completion = std::exchange(*m_makings[index], nullptr);
        if (!completion)
            return false;
        completion(std::move(made));
        return true;
    }

    /// How many thumbnails are neither finished nor dropped.
    [[nodiscard]] int running() const
    {
        int count = 0;
        for (const std::shared_ptr<Completion>& making : m_makings)
            count += *making ? 1 : 0;
        return count;
    }

    bool canMake = true;
    QList<Wanted> asked;

private:
    QList<std::shared_ptr<Completion>> m_makings;
};

} // namespace nookle
