#pragma once

#include <functional>
#include <memory>

class QProcess;

namespace nookle {

/// A process, not started yet, with a session of its own, that says nothing to this one's standard streams, inherits no
/// other descriptor, and dies with this process. Before its program starts it calls `prepare`, which must do nothing
/// but plain system calls, and may pass on descriptors by `passOn`.
[[nodiscard]] std::unique_ptr<QProcess> makeChildProcess(std::function<void()> prepare);

/// Lets the program that is about to start inherit `descriptor`. For `prepare` alone.
void passOn(int descriptor);

/// Kills a child process with all that it has started, and forgets it, without waiting for its end as long as an event
/// loop runs that can see to it. Not from within a signal of `process`.
void endChildProcess(std::unique_ptr<QProcess> process);

} // namespace nookle
