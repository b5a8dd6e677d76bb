#include "LoopbackWeb.h"
#include "Lookup.h"
#include "ProcessLimits.h"

#include <curl/curl.h>

/// What nookle-lookup does, for a web on this computer.
int main()
{
    nookle::limitProcess();
    if (!nookle::allowInternetSocketsOnly() || ::curl_global_init(CURL_GLOBAL_DEFAULT) != CURLE_OK)
        return 1;
    return nookle::answerRequests(nookle::loopbackWeb());
}
