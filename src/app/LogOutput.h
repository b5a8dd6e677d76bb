#pragma once

namespace nookle {

/// Sends every log line to standard error and nowhere else, without decoration. Call it first of all.
void sendLogToStandardError();

} // namespace nookle
