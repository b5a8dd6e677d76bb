#pragma once

#include <QByteArray>
#include <QList>
#include <QUrl>

#include <functional>
#include <optional>

namespace nookle {

/// Exchanges files between sandboxed programs and this one. Main thread only.
class FileTransfers {
public:
    using Completion = std::function<void(std::optional<QList<QUrl>>)>;

    virtual ~FileTransfers() = default;

    /// Whether all of `files` can be handed over: they are regular files, and this can be found out without waiting.
    [[nodiscard]] virtual bool canHandOver(const QList<QUrl>& files) = 0;

    /// Begins a transfer, and returns its key, which works once. None when the desktop has no transfer service or the
    /// service does not answer in time. Blocks for at most half a second.
    [[nodiscard]] virtual std::optional<QByteArray> begin() = 0;

    /// Makes regular files readable for the program that receives the key. False when the service refuses or does not
    /// answer in time. Blocks for at most half a second.
    [[nodiscard]] virtual bool add(const QByteArray& key, const QList<QUrl>& files) = 0;

    /// Gets the files that another program offers under `key`. `completion` is called once, on the main thread and
    /// after this call has returned, with paths that this program can use. It gets none or an empty list when there are
    /// no files, and none when the service does not answer within two seconds.
    virtual void retrieve(const QByteArray& key, Completion completion) = 0;
};

} // namespace nookle
