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

    /// Whether the desktop has a service for it.
    [[nodiscard]] virtual bool isAvailable() = 0;

    /// Makes `files` readable for the program that is told the key, once. Nothing when the service refuses, or does not
    /// answer within a second, for which this call may wait.
    [[nodiscard]] virtual std::optional<QByteArray> offer(const QList<QUrl>& files) = 0;

    /// Takes over what another program offers under `key`. `completion` is called once, on the main thread and after
    /// this call has returned, with the files under names that this program can use; with nothing when there are none,
    /// or the service does not answer within two seconds.
    virtual void retrieve(const QByteArray& key, Completion completion) = 0;
};

} // namespace nookle
