#include "DecodeAttempts.h"

#include <algorithm>
#include <utility>

namespace nookle {

DecodeAttempts::DecodeAttempts(ImageDecoder& decoder, std::vector<Attempt> attempts, Completion completion)
    : m_decoder(decoder)
    , m_attempts(std::move(attempts))
    , m_completion(std::move(completion))
{
    std::reverse(m_attempts.begin(), m_attempts.end());
    tryNext();
}

void DecodeAttempts::tryNext()
{
    std::optional<RegularFile> file;
    if (!m_attempts.empty()) {
        m_request = m_attempts.back().request;
        file = std::move(m_attempts.back().file);
        m_attempts.pop_back();
    }
    m_decoding = m_decoder.decode(m_request, std::move(file),
                                  [this](std::optional<DecodeReply> reply) { take(std::move(reply)); });
}

void DecodeAttempts::take(std::optional<DecodeReply> reply)
{
    if (!reply && !m_attempts.empty()) {
        tryNext();
        return;
    }
    const Completion completion = std::exchange(m_completion, nullptr);
    const DecodeRequest request = m_request;
    completion(std::move(reply), request);
}

} // namespace nookle
