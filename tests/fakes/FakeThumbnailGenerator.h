#pragma once

#include "ThumbnailGenerator.h"

#include <QList>

#include <memory>
#include <utility>

namespace nookle {

/// ThumbnailGenerator that are made when a test says so.
class FakeThumbnailGenerator final : public ThumbnailGenerator {
public:
    struct Asked {
        QUrl file;
        double size = 0;
        double scale = 0;

        bool operator==(const Asked&) const = default;
    };

    std::unique_ptr<Cancellable> request(const QUrl& file, double size, double scale, Completion completion) override
    {
        asked.append(Asked{ file, size, scale });
        m_requests.append(std::make_shared<Completion>(std::move(completion)));
        return std::make_unique<Cancellable>([running = m_requests.constLast()] { *running = nullptr; });
    }

    /// Answers the request number `index`, from 0. False when it was answered or dropped before.
    bool finish(qsizetype index, std::optional<Picture> picture)
    {
        const Completion completion = std::exchange(*m_requests[index], nullptr);
        if (!completion)
            return false;
        completion(std::move(picture));
        return true;
    }

    [[nodiscard]] qsizetype requestCount() const { return m_requests.size(); }

    /// How many requests are neither answered nor dropped.
    [[nodiscard]] int running() const
    {
        int count = 0;
        for (const std::shared_ptr<Completion>& request : m_requests)
            count += *request ? 1 : 0;
        return count;
    }

    QList<Asked> asked;

private:
    QList<std::shared_ptr<Completion>> m_requests;
};

} // namespace nookle
