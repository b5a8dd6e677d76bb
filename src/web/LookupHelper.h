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

/// Runs one lookup at a time in a helper process. The process is started at the first request, restarted after a crash,
/// and ended when it has been idle for `longestIdling`. A lookup that crashes the process, or takes longer than
/// `longestLookup`, has no reply. Main thread only.
class LookupHelper final {
public:
    using Completion = std::function<void(std::optional<LookupReply>)>;
    using Confinement = HelperProcess::Confinement;

    /// In seconds.
    inline static constexpr double longestLookup = 10;
    inline static constexpr double longestIdling = 60;

    /// `program` is the path of nookle-lookup. If no sandbox can be started, it runs without one.
    LookupHelper(MainQueue& queue, QString program, Confinement confinement);
    ~LookupHelper();
    LookupHelper(const LookupHelper&) = delete;
    LookupHelper& operator=(const LookupHelper&) = delete;

    [[nodiscard]] bool isFree() const { return !m_completion; }

    /// Starts the lookup of `request`. Call it only if `isFree()`. `completion` is called once, after this call has
    /// returned, and may destroy this object.
    void ask(LookupRequest request, Completion completion);

    /// Cancels the running lookup and ends its process. Its completion is not called.
    void drop();

    /// The id of the helper process, or of the sandbox around it; 0 when there is none.
    [[nodiscard]] qint64 processId() const;

    /// Called when the process cannot be started, before the completion of the lookup. Set by the owner.
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
    /// The proxy settings, read when the process was started. That is often enough.
    ProxySettings m_proxies;
    LookupRequest m_request;
    /// The completion of the running lookup; empty if there is none.
    Completion m_completion;
    std::unique_ptr<Cancellable> m_limit;
    std::unique_ptr<Cancellable> m_idleEnd;
};

} // namespace nookle
