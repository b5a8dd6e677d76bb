#pragma once

#include "Cancellable.h"
#include "DecoderProtocol.h"
#include "FrameReader.h"
#include "HelperConfinement.h"
#include "HelperProcess.h"
#include "Lifetime.h"
#include "RegularFile.h"

#include <QString>

#include <deque>
#include <functional>
#include <memory>
#include <optional>

namespace nookle {

class MainQueue;

/// Decodes images in a helper process, in the order of the requests. The process is started at the first request,
/// restarted after a crash, and ended when it has been idle for `longestIdling`. An image that crashes the decoder, or
/// takes longer than `longestDecoding`, has no result; the images behind it are still decoded. The decoder gets copies
/// in memory, so that it cannot change a file. Main thread only.
class ImageDecoder final {
public:
    using Completion = std::function<void(std::optional<DecodeReply>)>;
    using Confinement = HelperProcess::Confinement;

    /// In seconds.
    inline static constexpr double longestDecoding = 5;
    inline static constexpr double longestIdling = 10;

    /// In bytes. Larger files get no result: the decoder has too little memory for their pixels.
    inline static constexpr qint64 longestFile = qint64{ 256 } << 20;

    /// The maximum number of requests that the decoder holds. While it decodes one image, it has the next already, so
    /// it never waits for this process.
    inline static constexpr std::size_t mostOnTheWay = 2;

    /// `program` is the path of the decoder. If no sandbox can be started, the decoder runs without one.
    ImageDecoder(MainQueue& queue, QString program, Confinement confinement = Confinement::sandbox);
    ~ImageDecoder();
    ImageDecoder(const ImageDecoder&) = delete;
    ImageDecoder& operator=(const ImageDecoder&) = delete;

    /// Processes the image in `file` as `request` says. `completion` is called once, on the main thread and after this
    /// call has returned. It gets none when there is no file, or no image in it.
    [[nodiscard]] std::unique_ptr<Cancellable> decode(DecodeRequest request, std::optional<RegularFile> file,
                                                      Completion completion);

    /// The id of the decoder's process, or of the sandbox around it; 0 when there is none.
    [[nodiscard]] qint64 processId() const;

private:
    struct Job;

    enum class Decoder { none, starting, ready };

    void schedulePump();
    void pump();
    void copyNext();
    void copy(const std::shared_ptr<Job>& job);
    void takeCopy(const std::shared_ptr<Job>& job, std::optional<RegularFile> copy);
    [[nodiscard]] bool canSend() const;
    void startDecoder();
    void sendNext();
    void receive(QByteArrayView bytes);
    bool takeReply();
    void restartLimit();
    void decoderEnded();
    void stopDecoder();
    void giveUpStart();
    void giveUpOldest();
    void finish(const std::shared_ptr<Job>& job, std::optional<DecodeReply> reply);
    void dropCancelled();

    MainQueue& m_queue;
    HelperProcess::Program m_program;
    HelperConfinement m_confinement;
    Decoder m_decoder = Decoder::none;
    std::deque<std::shared_ptr<Job>> m_waiting;
    /// The requests that the decoder has not answered yet, the oldest first.
    std::deque<std::shared_ptr<Job>> m_sent;
    std::unique_ptr<HelperProcess> m_process;
    FrameReader m_reader;
    std::unique_ptr<Cancellable> m_limit;
    std::unique_ptr<Cancellable> m_idleEnd;
    bool m_isPumpScheduled = false;
    /// The failure to start the decoder is logged only once, although each image tries to start it again.
    bool m_hasToldOfFailure = false;
    Lifetime m_lifetime;
};

} // namespace nookle
