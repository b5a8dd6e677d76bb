#pragma once

namespace nookle {

/// Sends every log line to standard error only, without decoration. Drops debug messages. Call it before anything else.
void sendLogToStandardError();

} // namespace nookle
