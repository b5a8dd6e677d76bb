#pragma once

#include "ImageConverter.h"

#include <QList>

#include <memory>
#include <utility>

namespace nookle {

/// Conversions that last until a test finishes them.
class FakeImageConverter final : public ImageConverter {
public:
    struct Asked {
        Source source;
        int maximumSide = 0;
    };

    std::unique_ptr<Cancellable> convertToPng(Source source, int maximumSide, Completion completion) override
    {
        asked.append(Asked{ std::move(source), maximumSide });
        m_conversions.append(std::make_shared<Completion>(std::move(completion)));
        return std::make_unique<Cancellable>([running = m_conversions.constLast()] { *running = nullptr; });
    }

    /// Finishes the conversion number `index`, from 0. False when it was finished or dropped before.
    bool finish(qsizetype index, std::optional<QByteArray> png)
    {
        const Completion completion = std::exchange(*m_conversions[index], nullptr);
        if (!completion)
            return false;
        completion(std::move(png));
        return true;
    }

    QList<Asked> asked;

private:
    QList<std::shared_ptr<Completion>> m_conversions;
};

} // namespace nookle
