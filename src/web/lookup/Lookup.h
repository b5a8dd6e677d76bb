#pragma once

#include "LookupProtocol.h"
#include "WebSurroundings.h"

namespace nookle {

/// The most that is read of a page.
inline constexpr qsizetype maximumPageBytes = 1'048'576;

/// Finds out what `request` asks: reads the head of a page, or fetches an icon. An address with something else than a
/// page behind it is found, and has no title. Waits for the server without a time limit, and may die of a page made for
/// it: not for a process that has anything else to do.
[[nodiscard]] LookupReply lookUp(const LookupRequest& request, const WebSurroundings& surroundings);

/// Answers the requests that come in over standard input, until the program has no more.
[[nodiscard]] int answerRequests(const WebSurroundings& surroundings);

} // namespace nookle
