#pragma once

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <functional>

namespace nookle {

/// The program's command line arguments: files, by path or by address, and other addresses.
struct FileArguments {
    /// The addresses of all usable arguments, in their order.
    QStringList uris;
    /// The arguments that are neither an existing file nor an address, unchanged.
    QList<QByteArray> unknown;

    /// Relative paths are relative to `workingDirectory`. Names are bytes, and may begin with a hyphen. A path that
    /// `mayLookAt` refuses is not accessed; it counts as a file unless it has the form of an address.
    [[nodiscard]] static FileArguments parse(const QList<QByteArray>& arguments, const QByteArray& workingDirectory,
                                             const std::function<bool(const QByteArray& path)>& mayLookAt);
};

} // namespace nookle
