#pragma once

#include "ImageDecoder.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace nookle {

/// Tries to decode several alternative images, one after the other, until one succeeds. Destroying it cancels the rest.
class DecodeAttempts final {
public:
    struct Attempt {
        DecodeRequest request;
        RegularFile file;
    };

    /// Called with the first successful reply and its request, or with none if every attempt failed.
    using Completion = std::function<void(std::optional<DecodeReply>, const DecodeRequest&)>;

    /// `completion` is called once, never from within this call, and may destroy this object.
    DecodeAttempts(ImageDecoder& decoder, std::vector<Attempt> attempts, Completion completion);

private:
    void tryNext();
    void take(std::optional<DecodeReply> reply);

    ImageDecoder& m_decoder;
    /// In reverse order: the last one is tried next.
    std::vector<Attempt> m_attempts;
    Completion m_completion;
    DecodeRequest m_request;
    std::unique_ptr<Cancellable> m_decoding;
};

} // namespace nookle
