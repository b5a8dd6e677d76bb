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

    std::unique_ptr<ImageConversion> convertToPng(Source source, int maximumSide, Completion completion) override
    {
        asked.append(Asked{ std::move(source), maximumSide });
        m_conversions.append(std::make_shared<Completion>(std::move(completion)));
        return std::make_unique<Conversion>(m_conversions.constLast());
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
    class Conversion final : public ImageConversion {
    public:
        explicit Conversion(std::shared_ptr<Completion> completion)
            : m_completion(std::move(completion))
        {
        }
        ~Conversion() override { *m_completion = nullptr; }
        Conversion(const Conversion&) = delete;
        Conversion& operator=(const Conversion&) = delete;

    private:
        std::shared_ptr<Completion> m_completion;
    };

    QList<std::shared_ptr<Completion>> m_conversions;
};

} // namespace nookle
