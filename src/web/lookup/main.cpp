#include "Lookup.h"
#include "ProcessLimits.h"

#include <curl/curl.h>

using namespace nookle;

namespace {

// Thousands of pages take less.
inline constexpr unsigned mostProcessorSeconds = 60;

} // namespace

/// Looks web pages up for the program that started it, which is at the other end of standard input, until that closes
/// it.
int main()
{
    limitProcess();
    limitProcessorTime(mostProcessorSeconds);
    if (!forbidLocalSockets() || ::curl_global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK)
        return 1;
    return answerRequests(systemSurroundings());
}
