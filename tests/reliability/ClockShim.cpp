// Lets the clock jump for the program that it is loaded into: by CLOCK_JUMP seconds, once the file that CLOCK_JUMPED
// names exists. A minute passes with the jump, so that what the program does every minute is due.

#include <dlfcn.h>
#include <sys/stat.h>
#include <sys/time.h>

#include <cstdlib>
#include <ctime>

namespace {

constexpr time_t minute = 60;

bool hasJumped()
{
    const char* path = std::getenv("CLOCK_JUMPED");
    struct stat status {};
    return path != nullptr && ::stat(path, &status) == 0;
}

time_t jump()
{
    const char* seconds = std::getenv("CLOCK_JUMP");
    return seconds != nullptr ? std::atol(seconds) : 0;
}

template <typename Function> Function* original(const char* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

} // namespace

extern "C" {

int clock_gettime(clockid_t clock, timespec* time)
{
    static auto* const call = original<int(clockid_t, timespec*)>("clock_gettime");
    const int result = call(clock, time);
    if (result == 0 && hasJumped())
        time->tv_sec += clock == CLOCK_REALTIME || clock == CLOCK_REALTIME_COARSE ? jump() : minute;
    return result;
}

int gettimeofday(timeval* time, void* zone)
{
    static auto* const call = original<int(timeval*, void*)>("gettimeofday");
    const int result = call(time, zone);
    if (result == 0 && hasJumped())
        time->tv_sec += jump();
    return result;
}

time_t time(time_t* result)
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (result != nullptr)
        *result = now.tv_sec;
    return now.tv_sec;
}

} // extern "C"
