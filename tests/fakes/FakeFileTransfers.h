#pragma once

#include "FileTransfers.h"

#include <utility>
#include <vector>

namespace nookle {

/// Transfers that last until a test finishes them.
class FakeFileTransfers final : public FileTransfers {
public:
    [[nodiscard]] bool isAvailable() override { return available; }

    [[nodiscard]] std::optional<QByteArray> offer(const QList<QUrl>& files) override
    {
        offered.append(files);
        return key;
    }

    void retrieve(const QByteArray& retrievedKey, Completion completion) override
    {
        retrieved.append(retrievedKey);
        m_completions.push_back(std::move(completion));
    }

    /// Answers the request number `index`, from 0.
    void finish(std::size_t index, std::optional<QList<QUrl>> files)
    {
        const Completion completion = std::exchange(m_completions[index], nullptr);
        completion(std::move(files));
    }

    bool available = false;
    std::optional<QByteArray> key;
    QList<QList<QUrl>> offered;
    QList<QByteArray> retrieved;

private:
    std::vector<Completion> m_completions;
};

} // namespace nookle
