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

/// Has images decoded, in the order in which they come, by a process that is started when the first one comes, started
/// again after a crash, and ended when nothing has come for a while. An image that crashes the decoder, or keeps it
/// longer than `longestDecoding`, has no result; those behind it are not touched by that. The decoder gets copies in
/// memory, so that it can change no file. Main thread only.
class ImageDecoder final {
public:
    using Completion = std::function<void(std::optional<DecodeReply>)>;
    using Confinement = HelperProcess::Confinement;

    /// In seconds.
    inline static constexpr double longestDecoding = 5;
    inline static constexpr double longestIdling = 10;

    /// In bytes. The decoder has no memory for the pixels of what is longer.
    inline static constexpr qint64 longestFile = qint64{ 256 } << 20;

    /// While one image is being decoded the next is there already, so that the decoder never waits for this process.
    inline static constexpr std::size_t mostOnTheWay = 2;

    /// `program` is the path of the decoder. Where no sandbox can be made, the decoder runs without one.
    ImageDecoder(MainQueue& queue, QString program, Confinement confinement = Confinement::sandbox);
    ~ImageDecoder();
    ImageDecoder(const ImageDecoder&) = delete;
    ImageDecoder& operator=(const ImageDecoder&) = delete;

    /// Does what `request` asks with the image in `file`. `completion` is called once, on the main thread and after
    /// this call has returned, with nothing when there is no image; also when there is no file.
    [[nodiscard]] std::unique_ptr<Cancellable> decode(DecodeRequest request, std::optional<RegularFile> file,
                                                      Completion completion);

    /// The process that decodes, or that confines the one that does; 0 when there is none.
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
    /// What the decoder has been asked and has not answered, the oldest first.
    std::deque<std::shared_ptr<Job>> m_sent;
    std::unique_ptr<HelperProcess> m_process;
    FrameReader m_reader;
    std::unique_ptr<Cancellable> m_limit;
    std::unique_ptr<Cancellable> m_idleEnd;
    bool m_isPumpScheduled = false;
    /// Each image tries again, but the log is told once.
    bool m_hasToldOfFailure = false;
    Lifetime m_lifetime;
};

} // namespace nookle
