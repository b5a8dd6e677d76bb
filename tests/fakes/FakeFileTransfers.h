#pragma once

#include "FileTransfers.h"
#include "FileUrl.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>
#include <vector>

namespace nookle {

/// Transfers that last until a test finishes them.
class FakeFileTransfers final : public FileTransfers {
public:
    [[nodiscard]] bool canHandOver(const QList<QUrl>& files) override
    {
        std::error_code ignored;
        return std::all_of(files.begin(), files.end(), [&](const QUrl& file) {
            return std::filesystem::is_regular_file(filePath(file).toStdString(), ignored);
        });
    }

    [[nodiscard]] std::optional<QByteArray> begin() override
    {
        ++begun;
        return key;
    }

    [[nodiscard]] bool add(const QByteArray& addedKey, const QList<QUrl>& files) override
    {
        for (const QUrl& file : files)
            added.append({ addedKey, file });
        return !refuses;
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

    /// None: there is no service.
    std::optional<QByteArray> key;
    bool refuses = false;
    int begun = 0;
    QList<std::pair<QByteArray, QUrl>> added;
    QList<QByteArray> retrieved;

private:
    std::vector<Completion> m_completions;
};

} // namespace nookle
