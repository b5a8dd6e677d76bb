#include "Lookup.h"
#include "ProcessLimits.h"

#include <curl/curl.h>

using namespace nookle;

namespace {

// Enough for thousands of pages.
inline constexpr unsigned mostProcessorSeconds = 60;

} // namespace

/// Looks up web pages for the program at the other end of standard input, until that end is closed.
int main()
{
    limitProcess();
    limitProcessorTime(mostProcessorSeconds);
    if (!allowInternetSocketsOnly() || ::curl_global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK)
        return 1;
    return answerRequests(systemSurroundings());
}
