#pragma once

#include <QByteArray>
#include <QList>
#include <QUrl>

#include <functional>
#include <optional>

namespace nookle {

/// Hands files over between sandboxed programs and this one. Main thread only.
class FileTransfers {
public:
    using Completion = std::function<void(std::optional<QList<QUrl>>)>;

    virtual ~FileTransfers() = default;

    /// Whether `file` is one that can be handed over: a regular file, of which that is known without waiting.
    [[nodiscard]] virtual bool canHandOver(const QUrl& file) = 0;

    /// Begins a transfer, and returns its key, which works once. Nothing when the desktop has no service for it, or
    /// that does not answer within half a second, for which this call may wait.
    [[nodiscard]] virtual std::optional<QByteArray> begin() = 0;

    /// Makes `file`, a regular one, readable for the program that is told the key. False when the service refuses, or
    /// does not answer within half a second, for which this call may wait.
    [[nodiscard]] virtual bool add(const QByteArray& key, const QUrl& file) = 0;

    /// Takes over what another program offers under `key`. `completion` is called once, on the main thread and after
    /// this call has returned, with the files under names that this program can use; with nothing when there are none,
    /// or the service does not answer within two seconds.
    virtual void retrieve(const QByteArray& key, Completion completion) = 0;
};

} // namespace nookle
