#pragma once

#include "FileUrl.h"
#include "Trash.h"

#include <QFile>
#include <QHash>
#include <QList>

#include <filesystem>
#include <system_error>

namespace nookle {

/// A Trash that keeps the contents of files, and swallows everything else. Files of a test lie in it when their path
/// has the folder ".Trash".
class FakeTrash : public Trash {
public:
    std::optional<Failure> moveToTrash(const QUrl& url) override
    {
        if (failure)
            return failure;
        QFile file(QFile::decodeName(filePath(url)));
        if (file.open(QIODevice::ReadOnly))
            held.insert(url, file.readAll());
        std::error_code error;
        std::filesystem::remove_all(filePath(url).toStdString(), error);
        if (error)
            return Failure{ QString::fromStdString(error.message()) };
        moved.append(url);
        return {};
    }

    std::optional<Failure> putBack(const QUrl& url) override
    {
        if (failure)
            return failure;
        QFile file(QFile::decodeName(filePath(url)));
        if (!held.contains(url) || !file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            return Failure{ QStringLiteral("not there") };
        file.write(held.take(url));
        return {};
    }

    bool canPutBack(const QUrl& url) const override { return held.contains(url); }
    bool contains(const QUrl& url) const override { return filePath(url).contains("/.Trash/"); }

    /// What was moved to the Trash, in order.
    QList<QUrl> moved;

    /// The contents of the files in the Trash, by the places where they were.
    QHash<QUrl, QByteArray> held;

    /// Why every move to and from it fails, when it is set.
    std::optional<Failure> failure;
};

} // namespace nookle
