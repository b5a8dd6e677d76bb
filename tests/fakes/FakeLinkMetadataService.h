#pragma once

#include "LinkMetadataService.h"

#include <QList>

#include <memory>
#include <utility>

namespace nookle {

/// Lookups that last until a test finishes them.
class FakeLinkMetadataService final : public LinkMetadataService {
public:
    std::unique_ptr<Cancellable> start(const QUrl& url, Completion completion) override
    {
        started.append(url);
        m_lookups.append(std::make_shared<Completion>(std::move(completion)));
        return std::make_unique<Cancellable>([running = m_lookups.constLast()] { *running = nullptr; });
    }

    /// How many lookups are neither finished nor cancelled.
    [[nodiscard]] int running() const
    {
        int count = 0;
        for (const std::shared_ptr<Completion>& lookup : m_lookups)
            count += *lookup ? 1 : 0;
        return count;
    }

    /// How many requests have not been destroyed yet.
    [[nodiscard]] int held() const
    {
        int count = 0;
        for (const std::shared_ptr<Completion>& lookup : m_lookups)
            count += lookup.use_count() > 1 ? 1 : 0;
        return count;
    }

    /// Finishes the lookup that was started as number `index`, from 0. False when it is not running any more.
    bool finish(qsizetype index, std::optional<LinkMetadata> metadata)
    {
        // Moved out first: the request may be destroyed in its completion.
        const Completion completion = std::exchange(*m_lookups.at(index), nullptr);
        if (!completion)
            return false;
        completion(std::move(metadata));
        return true;
    }

    /// The URLs of all lookups, in the order in which they were started.
    QList<QUrl> started;

private:
    QList<std::shared_ptr<Completion>> m_lookups;
};

} // namespace nookle
