#pragma once

#include "ImageDecoder.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace nookle {

/// Images of which any would do, tried one after the other until one can be decoded. Destroying it drops the rest.
class DecodeAttempts final {
public:
    struct Attempt {
        DecodeRequest request;
        RegularFile file;
    };

    /// With what came first, and the request that it answers; or with nothing.
    using Completion = std::function<void(std::optional<DecodeReply>, const DecodeRequest&)>;

    /// `completion` is called once, never from within this call, and may destroy this object.
    DecodeAttempts(ImageDecoder& decoder, std::vector<Attempt> attempts, Completion completion);

private:
    void tryNext();
    void take(std::optional<DecodeReply> reply);

    ImageDecoder& m_decoder;
    /// The last one is the next to try.
    std::vector<Attempt> m_attempts;
    Completion m_completion;
    DecodeRequest m_request;
    std::unique_ptr<Cancellable> m_decoding;
};

} // namespace nookle
