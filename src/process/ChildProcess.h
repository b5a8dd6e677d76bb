#pragma once

#include <functional>
#include <memory>

class QProcess;

namespace nookle {

/// A child process, not started yet. It gets a session of its own, has its standard streams on /dev/null, inherits no
/// other descriptor, and is killed when this process ends. In the child, before the program starts, `prepare` is
/// called. It must do nothing but plain system calls, and may pass on descriptors with `passOn`.
[[nodiscard]] std::unique_ptr<QProcess> makeChildProcess(std::function<void()> prepare);

/// Lets the child's program inherit `descriptor`. Call it only within `prepare`.
void passOn(int descriptor);

/// Kills a child process and its process group. Does not wait for its end while an event loop runs; otherwise waits at
/// most a second. Do not call it within a signal of `process`.
void endChildProcess(std::unique_ptr<QProcess> process);

} // namespace nookle
