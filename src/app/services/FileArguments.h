#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <functional>

namespace nookle {

/// What the program was started with: files, by path or by address, and other addresses.
struct FileArguments {
    /// Of everything that is there, in its order.
    QStringList uris;
    /// What is neither a file that exists nor an address, as it was given.
    QList<QByteArray> unknown;

    /// Relative paths count from `workingDirectory`. Names are bytes, and may begin with a hyphen. A path that
    /// `mayLookAt` refuses counts as a file unless it reads as an address.
    [[nodiscard]] static FileArguments parse(const QList<QByteArray>& arguments, const QByteArray& workingDirectory,
                                             const std::function<bool(const QByteArray& path)>& mayLookAt);
};

} // namespace nookle
