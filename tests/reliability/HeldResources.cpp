#include "HeldResources.h"

#include "XResources.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace nookle {

namespace {

[[nodiscard]] long residentPages(const std::string& process)
{
    std::ifstream file(process + "/statm");
    long size = 0;
    long resident = 0;
    file >> size >> resident;
    return resident;
}

[[nodiscard]] long watchCount(const std::string& process)
{
    long count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(process + "/fdinfo")) {
        std::ifstream file(entry.path());
        for (std::string line; std::getline(file, line);)
            count += line.starts_with("inotify ") ? 1 : 0;
    }
    return count;
}

} // namespace

HeldResources HeldResources::of(qint64 processId, const QByteArray& display)
{
    const std::string process = "/proc/" + std::to_string(processId);
    return { residentPages(process), std::distance(std::filesystem::directory_iterator(process + "/fd"), {}),
             watchCount(process), e2e::xResources(display, processId) };
}

bool HeldResources::hasMoreMemoryThan(const HeldResources& other) const
{
#ifdef __SANITIZE_ADDRESS__
    constexpr double allowed = 10;
#else
    constexpr double allowed = 1.05;
#endif
    return static_cast<double>(pages) > allowed * static_cast<double>(other.pages);
}

QDebug operator<<(QDebug debug, const HeldResources& resources)
{
    return debug.nospace() << resources.pages << " pages, " << resources.descriptors << " descriptors, "
                           << resources.watches << " watches, " << resources.xResources << " X resources";
}

} // namespace nookle
