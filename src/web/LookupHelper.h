#pragma once

#include "FrameReader.h"
#include "HelperConfinement.h"
#include "HelperProcess.h"
#include "LookupProtocol.h"

#include <QString>

#include <functional>
#include <memory>
#include <optional>

namespace nookle {

class Cancellable;
class MainQueue;

/// Looks one thing up at a time, by a process that is started when there is something to look up, started again after a
/// crash, and ended when nothing has come for a while. What crashes it, or takes it longer than `longestLookup`, has no
/// reply. Main thread only.
class LookupHelper final {
public:
    using Completion = std::function<void(std::optional<LookupReply>)>;
    using Confinement = HelperProcess::Confinement;

    /// In seconds.
    inline static constexpr double longestLookup = 10;
    inline static constexpr double longestIdling = 60;

    /// `program` is the path of nookle-lookup. Where no sandbox can be made, it runs without one.
    LookupHelper(MainQueue& queue, QString program, Confinement confinement);
    ~LookupHelper();
    LookupHelper(const LookupHelper&) = delete;
    LookupHelper& operator=(const LookupHelper&) = delete;

    [[nodiscard]] bool isFree() const { return !m_completion; }

    /// Looks up what `request` asks, when it is free. `completion` is called once, after this call has returned, and
    /// may destroy this object.
    void ask(LookupRequest request, Completion completion);

    /// Ends the lookup under way, and all that it has open. Its completion is not called any more.
    void drop();

    /// The process that looks things up, or that confines the one that does; 0 when there is none.
    [[nodiscard]] qint64 processId() const;

    /// The process cannot be started. Called before the completion of the lookup that it was for. Set by the owner.
    std::function<void()> onNoStart;

private:
    enum class State { none, starting, ready };

    void start();
    void stop();
    void send();
    void receive(QByteArrayView bytes);
    void takeGreeting();
    void takeReply();
    void processEnded();
    void finish(std::optional<LookupReply> reply);

    MainQueue& m_queue;
    QString m_program;
    HelperConfinement m_confinement;
    State m_state = State::none;
    std::unique_ptr<HelperProcess> m_process;
    FrameReader m_reader;
    /// As they were when the process started, which is often enough.
    ProxySettings m_proxies;
    LookupRequest m_request;
    /// None when it is free.
    Completion m_completion;
    std::unique_ptr<Cancellable> m_limit;
    std::unique_ptr<Cancellable> m_idleEnd;
};

} // namespace nookle
