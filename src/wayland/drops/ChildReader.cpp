#include "ChildReader.h"

namespace nookle {

std::optional<QByteArray> ChildReader::run(const Work& work, qsizetype maximumSize, Clock::time_point deadline)
{
    auto child = ReadingChild::tryStart(work, maximumSize, deadline);
    if (!child)
        return std::nullopt;
    while (waitForAny({ child->pipe() }, deadline)) {
        const auto progress = child->take();
        if (progress == ReadingChild::Progress::done)
            return child->bytes();
        if (progress == ReadingChild::Progress::failed)
            return std::nullopt;
    }
    return std::nullopt;
}

} // namespace nookle
