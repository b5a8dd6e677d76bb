#pragma once

#include <memory>

class QProcess;

namespace nookle {

/// Kills `process` and forgets it, without waiting for its end as long as an event loop runs that can see to it.
void endProcess(std::unique_ptr<QProcess> process);

} // namespace nookle
