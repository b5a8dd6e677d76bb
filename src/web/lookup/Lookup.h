#pragma once

#include "LookupProtocol.h"
#include "WebSurroundings.h"

namespace nookle {

/// The maximum size that is read of a page.
inline constexpr qsizetype maximumPageBytes = 1'048'576;

/// Runs a lookup: reads the head of a page, or fetches an icon. If the address leads to something else than a page, the
/// reply is found and has no title. Waits for the server without a timeout, and a malicious page may crash it: call it
/// only in a process that does nothing else.
[[nodiscard]] LookupReply lookUp(const LookupRequest& request, const WebSurroundings& surroundings);

/// Answers the requests from standard input until the program closes it. Returns the exit code of the process.
[[nodiscard]] int answerRequests(const WebSurroundings& surroundings);

} // namespace nookle
