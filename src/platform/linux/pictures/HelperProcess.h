#pragma once

#include <functional>
#include <memory>

class QProcess;

namespace nookle {

/// A process, not started yet, with a session of its own, that says nothing to this one's standard streams and dies
/// with it. Before its program starts it calls `prepare`, which must do nothing but plain system calls.
[[nodiscard]] std::unique_ptr<QProcess> makeHelperProcess(std::function<void()> prepare);

/// Kills a helper process with all that it has started, and forgets it, without waiting for its end as long as an event
/// loop runs that can see to it. Not from within a signal of `process`.
void endHelperProcess(std::unique_ptr<QProcess> process);

} // namespace nookle
