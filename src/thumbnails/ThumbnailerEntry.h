#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace nookle {

/// What a program says of the thumbnails that it makes, in a file named *.thumbnailer.
struct ThumbnailerEntry {
    /// The words of its command line, with their codes.
    QStringList command;
    /// What must be there for the program to run; empty for nothing.
    QString tryExec;
    QStringList mimeTypes;

    /// Nothing for what is no such file, or lacks the command or the types.
    [[nodiscard]] static std::optional<ThumbnailerEntry> parse(const QByteArray& content);

    /// Whether the program is installed.
    [[nodiscard]] bool isInstalled() const;

    bool operator==(const ThumbnailerEntry&) const = default;
};

} // namespace nookle
