#pragma once

#include <QHash>
#include <QString>
#include <QtGlobal>

#include <chrono>

namespace nookle::bench {

// What the system knows of a running process. Each is 0 or empty when there is no such process.

/// Its resident memory, with what it shares divided among those that share it; in bytes.
[[nodiscard]] qint64 proportionalMemory(qint64 processId);

/// The memory that it has written to and shares with nobody, in bytes. Does not depend on what else runs.
[[nodiscard]] qint64 ownMemory(qint64 processId);

/// How often each of its threads has waited for something, and so was woken up by it.
using WakeUps = QHash<QString, qint64>;
[[nodiscard]] WakeUps wakeUps(qint64 processId);
/// The sum of all threads' between two moments. What a thread did that has ended in between is not known.
[[nodiscard]] qint64 countSince(const WakeUps& before, const WakeUps& after);

/// The time that its threads have spent on a processor.
[[nodiscard]] std::chrono::nanoseconds processorTime(qint64 processId);

/// A clock of the calling thread that stands still while the thread could run and all processors are busy with others.
[[nodiscard]] std::chrono::nanoseconds ownTime();

} // namespace nookle::bench
