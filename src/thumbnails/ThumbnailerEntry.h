#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace nookle {

/// The registration of a thumbnailer program, a file named *.thumbnailer.
struct ThumbnailerEntry {
    /// The words of the command line, with their field codes.
    QStringList command;
    /// The program that must be installed for the command to work; empty if none is named.
    QString tryExec;
    QStringList mimeTypes;

    /// None for a file of another format, or without the command or the types.
    [[nodiscard]] static std::optional<ThumbnailerEntry> parse(const QByteArray& content);

    /// Whether the program is installed.
    [[nodiscard]] bool isInstalled() const;

    bool operator==(const ThumbnailerEntry&) const = default;
};

} // namespace nookle
