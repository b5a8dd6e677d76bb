#include "BridgedDrop.h"

#include <algorithm>
#include <cstddef>
#include <thread>
#include <utility>

namespace nookle {

namespace {

/// A program hears of its own drop within that time, unless the machine is busy.
inline constexpr std::chrono::milliseconds timeToHearOfTheDrop{ 30 };
/// How long all children together may take to ask.
inline constexpr std::chrono::milliseconds timeToAsk{ 400 };
/// How long the first answer is waited for before the question is asked again. Each next one may take twice as long.
inline constexpr std::chrono::milliseconds timeToAnswer{ 100 };
/// How long a question without an answer is waited for once the others have had theirs.
inline constexpr std::chrono::milliseconds timeForSilence{ 300 };
/// What has come by the deadline is taken.
inline constexpr std::chrono::milliseconds timeToTakeTheRest{ 10 };
/// One question is asked at most that often.
inline constexpr int mostTimesAsked = 6;

[[nodiscard]] bool isArriving(const std::vector<ReadingChild>& children)
{
    return std::any_of(children.begin(), children.end(), [](const ReadingChild& child) { return !child.isSilent(); });
}

} // namespace

BridgedDrop::BridgedDrop(MakeWork makeWork, int socket, const Limits& limits)
    : m_makeWork(std::move(makeWork))
    , m_socket(socket)
    , m_limits(limits)
    , m_earliest(Clock::now() + timeToHearOfTheDrop)
{
}

bool BridgedDrop::ask(const QStringList& formats)
{
    std::vector<Asking> asking = start(formats);
    collect(asking);
    std::this_thread::sleep_until(std::min(m_earliest, m_limits.deadline));
    return send(std::move(asking));
}

// What the children ask for has the ends of their pipes. A child that is started later would hold these open, so all
// are started before any of them is received.
std::vector<BridgedDrop::Asking> BridgedDrop::start(const QStringList& formats) const
{
    std::vector<Asking> asking;
    for (const QString& format : formats) {
        auto request = HeldRequest::tryMake();
        auto work = m_makeWork(format);
        if (!request || !work)
            break;
        work->read = [read = std::move(work->read), &request, socket = m_socket] {
            request->divert(socket);
            return read();
        };
        auto child = ReadingChild::tryStart(*work, m_limits.size, m_limits.deadline);
        if (child)
            asking.push_back({ format, std::move(*child), std::move(*request) });
    }
    return asking;
}

void BridgedDrop::collect(std::vector<Asking>& asking)
{
    const auto until = std::min(m_limits.deadline, Clock::now() + timeToAsk);
    for (;;) {
        std::vector<std::size_t> waiting;
        std::vector<int> pipes;
        for (std::size_t one = 0; one < asking.size(); ++one) {
            if (asking[one].hasAsked)
                continue;
            waiting.push_back(one);
            pipes.push_back(asking[one].request.pipe());
            pipes.push_back(asking[one].child.pipe());
        }
        const auto ready = pipes.empty() ? std::nullopt : waitForAny(pipes, until);
        if (!ready)
            return;
        Asking& one = asking[waiting[*ready / 2]];
        one.hasAsked = *ready % 2 == 0 && one.request.receive(until);
        if (one.hasAsked)
            continue;
        // What is not offered is not asked for.
        m_questions[one.format].hasEnded = true;
        asking.erase(asking.begin() + static_cast<std::ptrdiff_t>(waiting[*ready / 2]));
    }
}

bool BridgedDrop::send(std::vector<Asking> asking)
{
    const auto late =
        std::stable_partition(asking.begin(), asking.end(), [](const Asking& one) { return one.hasAsked; });
    asking.erase(late, asking.end());
    std::vector<const HeldRequest*> requests;
    for (const Asking& one : asking)
        requests.push_back(&one.request);
    const std::size_t sent = HeldRequest::passOn(m_socket, requests, m_limits.deadline);
    for (std::size_t one = 0; one < sent; ++one) {
        Question& question = m_questions[asking[one].format];
        if (question.children.empty())
            question.asked = Clock::now();
        question.children.push_back(std::move(asking[one].child));
    }
    return sent > 0;
}

QByteArray BridgedDrop::answer(const QString& format)
{
    if (!m_questions.contains(format) && !ask({ format }))
        return {};
    Question& question = m_questions[format];
    auto patience = timeToAnswer;
    for (int times = 1; times <= mostTimesAsked; ++times) {
        takeFor(question, std::min(m_limits.deadline, Clock::now() + patience));
        if (question.answer)
            return *question.answer;
        const bool isOver = Clock::now() >= (question.children.empty() ? m_limits.deadline : patienceEnd(question));
        if (isOver || (question.hasEnded && !isArriving(question.children)))
            break;
        // What cannot be asked now was waited for long enough. The children of before may still bring the answer.
        if (!isArriving(question.children) && !ask({ format }) && question.children.empty())
            break;
        patience *= 2;
    }
    return {};
}

// An end without an answer is not taken for one while another child may still bring it.
void BridgedDrop::takeFor(Question& question, Clock::time_point until)
{
    const auto earliestEnd = Clock::now() + timeToTakeTheRest;
    while (!question.answer && !question.children.empty()) {
        if (!takeSome(std::max(earliestEnd, std::min(until, patienceEnd(question)))))
            return;
    }
}

bool BridgedDrop::takeSome(Clock::time_point until)
{
    std::vector<std::pair<Question*, std::size_t>> sources;
    for (auto& [format, question] : m_questions) {
        for (std::size_t child = 0; child < question.children.size(); ++child)
            sources.emplace_back(&question, child);
    }
    const auto turn = static_cast<std::ptrdiff_t>(m_turn++ % sources.size());
    std::rotate(sources.begin(), sources.begin() + turn, sources.end());
    std::vector<int> pipes;
    for (const auto& [question, child] : sources)
        pipes.push_back(question->children[child].pipe());
    const auto ready = waitForAny(pipes, until);
    if (!ready)
        return false;
    Question& question = *sources[*ready].first;
    const auto child = question.children.begin() + static_cast<std::ptrdiff_t>(sources[*ready].second);
    const auto progress = child->take();
    if (!child->isSilent())
        m_lastBytes = Clock::now();
    if (progress == ReadingChild::Progress::underWay)
        return true;
    if (progress == ReadingChild::Progress::done && !child->isSilent()) {
        question.answer = child->bytes();
        question.children.clear();
        return true;
    }
    question.hasEnded = true;
    question.children.erase(child);
    return true;
}

BridgedDrop::Clock::time_point BridgedDrop::patienceEnd(const Question& question) const
{
    if (!m_lastBytes || isArriving(question.children))
        return m_limits.deadline;
    return std::min(m_limits.deadline, std::max(*m_lastBytes, question.asked) + timeForSilence);
}

} // namespace nookle
