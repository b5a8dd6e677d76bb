#include "LookupHelper.h"

#include "LookupSandbox.h"
#include "MainQueue.h"
#include "SystemProxies.h"

#include <utility>

namespace nookle {

LookupHelper::LookupHelper(MainQueue& queue, QString program, Confinement confinement)
    : m_queue(queue)
    , m_program(std::move(program))
    , m_confinement(QStringLiteral("lookup of web pages"), confinement)
{
}

LookupHelper::~LookupHelper() = default;

void LookupHelper::ask(LookupRequest request, Completion completion)
{
    m_request = std::move(request);
    m_completion = std::move(completion);
    m_idleEnd.reset();
    m_limit = m_queue.after(longestLookup, [this] {
        stop();
        finish(std::nullopt);
    });
    if (m_state == State::none)
        start();
    else
        send();
}

void LookupHelper::drop()
{
    m_completion = nullptr;
    m_limit.reset();
    stop();
}

qint64 LookupHelper::processId() const
{
    return m_process ? m_process->processId() : 0;
}

void LookupHelper::start()
{
    m_reader = FrameReader();
    m_proxies = systemProxies();
    const HelperProcess::Program program{ m_program, lookupSandboxArguments() };
    m_process = std::make_unique<HelperProcess>(program, m_confinement.next());
    m_process->onBytes = [this](QByteArrayView bytes) { receive(bytes); };
    m_process->onEnd = [this] { processEnded(); };
    m_state = State::starting;
}

void LookupHelper::stop()
{
    m_idleEnd.reset();
    m_process.reset();
    m_state = State::none;
}

void LookupHelper::send()
{
    m_request.proxies = m_proxies;
    if (m_process->send(m_request.encode()))
        return;
    // The process has ended since the last lookup. This lookup is not the cause, so start a new process.
    stop();
    start();
}

void LookupHelper::receive(QByteArrayView bytes)
{
    m_reader.append(bytes);
    if (m_state == State::starting)
        takeGreeting();
    else if (m_completion)
        takeReply();
    else
        stop();
}

void LookupHelper::takeGreeting()
{
    const auto greeting = m_reader.takeGreeting(lookupGreeting);
    if (std::holds_alternative<FrameReader::Incomplete>(greeting))
        return;
    if (std::holds_alternative<FrameReader::Nonsense>(greeting) || m_reader.hasRest()) {
        stop();
        finish(std::nullopt);
        return;
    }
    m_state = State::ready;
    m_confinement.succeeded();
    send();
}

void LookupHelper::takeReply()
{
    const auto message = m_reader.takeMessage(LookupReply::longest);
    if (std::holds_alternative<FrameReader::Incomplete>(message))
        return;
    const auto* const bytes = std::get_if<QByteArray>(&message);
    std::optional<LookupReply> reply;
    if (bytes && !m_reader.hasRest())
        reply = LookupReply::decode(*bytes, m_request);
    if (reply)
        m_idleEnd = m_queue.after(longestIdling, [this] { stop(); });
    else
        stop();
    finish(std::move(reply));
}

void LookupHelper::processEnded()
{
    const bool wasStarting = m_state == State::starting;
    stop();
    if (wasStarting && m_confinement.failed()) {
        start();
        return;
    }
    if (wasStarting && onNoStart)
        onNoStart();
    if (m_completion)
        finish(std::nullopt);
}

void LookupHelper::finish(std::optional<LookupReply> reply)
{
    m_limit.reset();
    const Completion completion = std::exchange(m_completion, nullptr);
    completion(std::move(reply));
}

} // namespace nookle
