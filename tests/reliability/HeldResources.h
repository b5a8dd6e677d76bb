#pragma once

#include <QByteArray>
#include <QDebug>

namespace nookle {

/// What a process holds at a moment.
struct HeldResources {
    long pages = 0;
    long descriptors = 0;
    long watches = 0;
    /// Of the X server's.
    long xResources = 0;

    [[nodiscard]] static HeldResources of(qint64 processId, const QByteArray& display);

    /// By more than a twentieth, or by much more where a sanitizer keeps what is freed for a while.
    [[nodiscard]] bool hasMoreMemoryThan(const HeldResources& other) const;
};

QDebug operator<<(QDebug debug, const HeldResources& resources);

} // namespace nookle
