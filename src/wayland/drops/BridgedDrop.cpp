#include "BridgedDrop.h"

#include "HeldRequest.h"

#include <algorithm>
#include <cstddef>
#include <thread>
#include <utility>

namespace nookle {

namespace {

/// A program hears of its own drop within that time, unless the machine is busy.
inline constexpr std::chrono::milliseconds timeToHearOfTheDrop{ 30 };
/// How long a child may take to ask.
inline constexpr std::chrono::milliseconds timeToAsk{ 200 };
/// How long the first answer is waited for before the question is asked again. Each next one may take twice as long.
inline constexpr std::chrono::milliseconds timeToAnswer{ 100 };

} // namespace

BridgedDrop::BridgedDrop(MakeWork makeWork, int socket, const Limits& limits)
    : m_makeWork(std::move(makeWork))
    , m_socket(socket)
    , m_limits(limits)
    , m_earliest(Clock::now() + timeToHearOfTheDrop)
{
}

void BridgedDrop::ask(const QStringList& formats)
{
    std::vector<HeldRequest> requests;
    for (const QString& format : formats) {
        auto request = HeldRequest::tryMake();
        if (!request)
            break;
        ReadingChild::Work work = m_makeWork(format);
        work.read = [read = std::move(work.read), &request, socket = m_socket] {
            request->divert(socket);
            return read();
        };
        auto child = ReadingChild::tryStart(work, m_limits.size, m_limits.deadline);
        // What is not offered is not asked for.
        if (!child || !request->receive(std::min(m_limits.deadline, Clock::now() + timeToAsk)))
            continue;
        m_questions[format].push_back(std::move(*child));
        requests.push_back(std::move(*request));
    }
    std::this_thread::sleep_until(std::min(m_earliest, m_limits.deadline));
    static_cast<void>(HeldRequest::passOn(m_socket, requests));
}

QByteArray BridgedDrop::answer(const QString& format)
{
    if (!m_questions.contains(format))
        ask({ format });
    Children& children = m_questions[format];
    for (auto patience = timeToAnswer; !children.empty(); patience *= 2) {
        if (auto bytes = firstAnswer(children, std::min(m_limits.deadline, Clock::now() + patience)))
            return *bytes;
        if (Clock::now() >= m_limits.deadline)
            break;
        if (!children.empty())
            ask({ format });
    }
    return {};
}

std::optional<QByteArray> BridgedDrop::firstAnswer(Children& children, Clock::time_point until)
{
    while (!children.empty()) {
        std::vector<int> pipes;
        for (const ReadingChild& child : children)
            pipes.push_back(child.pipe());
        const auto ready = waitForAny(pipes, until);
        if (!ready)
            return std::nullopt;
        const auto child = children.begin() + static_cast<std::ptrdiff_t>(*ready);
        const auto progress = child->take();
        if (progress == ReadingChild::Progress::done)
            return child->bytes();
        if (progress == ReadingChild::Progress::failed)
            children.erase(child);
    }
    return std::nullopt;
}

} // namespace nookle
