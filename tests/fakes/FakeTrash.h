#pragma once

#include "FileUrl.h"
#include "Trash.h"

#include <QList>

#include <filesystem>
#include <system_error>

namespace nookle {

/// A Trash that swallows what is moved to it. Files of a test lie in it when their path has the folder ".Trash".
class FakeTrash : public Trash {
public:
    std::optional<Failure> moveToTrash(const QUrl& url) override
    {
        if (failure)
            return failure;
        std::error_code error;
        std::filesystem::remove_all(filePath(url).toStdString(), error);
        if (error)
            return Failure{ QString::fromStdString(error.message()) };
        moved.append(url);
        return {};
    }

    bool contains(const QUrl& url) const override { return filePath(url).contains("/.Trash/"); }

    /// What was moved to the Trash, in order.
    QList<QUrl> moved;

    /// Why every move fails, when it is set.
    std::optional<Failure> failure;
};

} // namespace nookle
