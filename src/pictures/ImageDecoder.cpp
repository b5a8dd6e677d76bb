#include "ImageDecoder.h"

#include "Log.h"
#include "MainQueue.h"
#include "SealedCopy.h"

#include <algorithm>
#include <utility>

namespace nookle {

struct ImageDecoder::Job {
    DecodeRequest request;
    std::optional<RegularFile> file;
    /// Set while `file` is being copied.
    std::unique_ptr<SealedCopy> copy;
    std::unique_ptr<Cancellable> copyLimit;
    /// Whether `file` is sealed, so that it may be sent to the decoder.
    bool isSealed = false;
    /// Empty once the request was cancelled.
    Completion completion;
};

ImageDecoder::ImageDecoder(MainQueue& queue, QString program, Confinement confinement)
    : m_queue(queue)
    , m_program{ std::move(program), {} }
    , m_confinement(QStringLiteral("image decoder"), confinement)
{
}

ImageDecoder::~ImageDecoder()
{
    // The callers' handles keep the jobs alive, possibly longer than this object and the queue.
    for (const std::shared_ptr<Job>& job : m_waiting) {
        job->copyLimit.reset();
        job->copy.reset();
    }
}

std::unique_ptr<Cancellable> ImageDecoder::decode(DecodeRequest request, std::optional<RegularFile> file,
                                                  Completion completion)
{
    auto job = std::make_shared<Job>();
    job->request = std::move(request);
    job->file = std::move(file);
    job->completion = std::move(completion);
    if (job->file) {
        job->isSealed = job->file->isSealed();
        m_waiting.push_back(job);
        schedulePump();
    } else {
        finish(job, std::nullopt);
    }
    return std::make_unique<Cancellable>([job, drop = m_lifetime.guarded([this] { dropCancelled(); })]() mutable {
        job->completion = nullptr;
        drop();
    });
}

qint64 ImageDecoder::processId() const
{
    return m_process ? m_process->processId() : 0;
}

void ImageDecoder::schedulePump()
{
    if (std::exchange(m_isPumpScheduled, true))
        return;
    m_queue.post(m_lifetime.guarded([this] { pump(); }));
}

void ImageDecoder::pump()
{
    m_isPumpScheduled = false;
    if (m_waiting.empty() && m_sent.empty()) {
        if (m_process && !m_idleEnd)
            m_idleEnd = m_queue.after(longestIdling, [this] { stopDecoder(); });
        return;
    }
    m_idleEnd.reset();
    copyNext();
    // Started only when there is something to send: otherwise a decoder that always crashes at once would be started in
    // an endless loop.
    if (m_decoder == Decoder::none && canSend())
        startDecoder();
    while (m_decoder == Decoder::ready && canSend() && m_sent.size() < mostOnTheWay)
        sendNext();
}

bool ImageDecoder::canSend() const
{
    return !m_waiting.empty() && m_waiting.front()->isSealed;
}

// Copies the next image while the decoder works on the present one.
void ImageDecoder::copyNext()
{
    const std::size_t most = std::min(m_waiting.size(), mostOnTheWay - m_sent.size());
    for (std::size_t index = 0; index < most; ++index) {
        const std::shared_ptr<Job>& job = m_waiting[index];
        if (!job->isSealed && !job->copy)
            copy(job);
    }
}

void ImageDecoder::copy(const std::shared_ptr<Job>& job)
{
    const SealedCopy::Completion take =
        m_lifetime.guarded([this, weakJob = std::weak_ptr(job)](std::optional<RegularFile> made) {
            if (const auto waiting = weakJob.lock())
                takeCopy(waiting, std::move(made));
        });
    job->copyLimit = m_queue.after(longestDecoding, [take] { take(std::nullopt); });
    job->copy = std::make_unique<SealedCopy>(std::move(*job->file), longestFile, take);
}

void ImageDecoder::takeCopy(const std::shared_ptr<Job>& job, std::optional<RegularFile> copy)
{
    job->copyLimit.reset();
    job->copy.reset();
    job->file = std::move(copy);
    job->isSealed = job->file.has_value();
    if (!job->isSealed) {
        std::erase(m_waiting, job);
        finish(job, std::nullopt);
    }
    pump();
}

void ImageDecoder::startDecoder()
{
    m_reader = FrameReader();
    m_process = std::make_unique<HelperProcess>(m_program, m_confinement.next());
    m_process->onBytes = [this](QByteArrayView bytes) { receive(bytes); };
    m_process->onEnd = [this] { decoderEnded(); };
    m_decoder = Decoder::starting;
    restartLimit();
}

void ImageDecoder::sendNext()
{
    m_sent.push_back(std::move(m_waiting.front()));
    m_waiting.pop_front();
    const Job& job = *m_sent.back();
    if (m_sent.size() == 1)
        restartLimit();
    if (!m_process->send(job.request.encode(), job.file->descriptor))
        giveUpOldest();
}

void ImageDecoder::receive(QByteArrayView bytes)
{
    m_reader.append(bytes);
    if (m_decoder == Decoder::starting) {
        const auto greeting = m_reader.takeGreeting(decoderGreeting);
        if (std::holds_alternative<FrameReader::Incomplete>(greeting))
            return;
        if (std::holds_alternative<FrameReader::Nonsense>(greeting) || m_reader.hasRest()) {
            giveUpStart();
            return;
        }
        m_decoder = Decoder::ready;
        m_confinement.succeeded();
        m_limit.reset();
        // Send the first request at once: a decoder that crashes before it has a request would be started again and
        // again.
        pump();
    }
    while (takeReply()) {}
    schedulePump();
}

// Returns whether there may be another reply.
bool ImageDecoder::takeReply()
{
    if (m_sent.empty()) {
        if (m_reader.hasRest())
            stopDecoder();
        return false;
    }
    const DecodeRequest& request = m_sent.front()->request;
    const auto message = m_reader.takeMessage(DecodeReply::longest(request));
    if (std::holds_alternative<FrameReader::Incomplete>(message))
        return false;
    const auto* const bytes = std::get_if<QByteArray>(&message);
    auto reply = bytes ? DecodeReply::decode(*bytes, request) : std::nullopt;
    if (!reply) {
        giveUpOldest();
        return false;
    }
    const std::shared_ptr<Job> job = std::move(m_sent.front());
    m_sent.pop_front();
    restartLimit();
    const bool hasImage = !reply->pixels.isEmpty() || !reply->png.isEmpty();
    finish(job, hasImage ? std::move(reply) : std::nullopt);
    return true;
}

// Restarts the timeout of the decoder's present work: its start, or the oldest image.
void ImageDecoder::restartLimit()
{
    m_limit.reset();
    if (m_decoder == Decoder::starting)
        m_limit = m_queue.after(longestDecoding, [this] { giveUpStart(); });
    else if (!m_sent.empty())
        m_limit = m_queue.after(longestDecoding, [this] { giveUpOldest(); });
}

void ImageDecoder::decoderEnded()
{
    if (m_decoder == Decoder::ready) {
        giveUpOldest();
        return;
    }
    if (!m_confinement.failed()) {
        giveUpStart();
        return;
    }
    stopDecoder();
    schedulePump();
}

void ImageDecoder::stopDecoder()
{
    m_limit.reset();
    m_idleEnd.reset();
    m_process.reset();
    m_decoder = Decoder::none;
}

void ImageDecoder::giveUpStart()
{
    if (!std::exchange(m_hasToldOfFailure, true))
        logLine(QStringLiteral("the image decoder does not start: %1").arg(m_program.path));
    stopDecoder();
    for (const std::shared_ptr<Job>& job : std::exchange(m_waiting, {}))
        finish(job, std::nullopt);
}

// The decoder was working on the oldest image, which gets no result. The others are sent to the next decoder.
void ImageDecoder::giveUpOldest()
{
    stopDecoder();
    if (!m_sent.empty()) {
        finish(m_sent.front(), std::nullopt);
        m_sent.pop_front();
    }
    m_waiting.insert(m_waiting.begin(), m_sent.begin(), m_sent.end());
    m_sent.clear();
    dropCancelled();
    schedulePump();
}

void ImageDecoder::finish(const std::shared_ptr<Job>& job, std::optional<DecodeReply> reply)
{
    job->copyLimit.reset();
    job->copy.reset();
    job->file.reset();
    m_queue.post([job, reply = std::move(reply)] {
        if (const Completion completion = std::exchange(job->completion, nullptr))
            completion(reply);
    });
}

void ImageDecoder::dropCancelled()
{
    std::erase_if(m_waiting, [](const std::shared_ptr<Job>& job) { return !job->completion; });
}

} // namespace nookle
