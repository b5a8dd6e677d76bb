#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <memory>
#include <optional>

namespace nookle {

/// Takes the compression off a body as it arrives. It never makes more of it than it is asked for, so that a body that
/// decodes to a thousand times its size costs nothing.
class ContentDecoder {
public:
    /// What servers may answer with.
    inline static constexpr const char* acceptedEncodings = "gzip, deflate, br";

    /// The decoder for the Content-Encoding `encoding`. None for one that is not known.
    [[nodiscard]] static std::unique_ptr<ContentDecoder> tryCreate(const QByteArray& encoding);

    virtual ~ContentDecoder() = default;

    /// What `bytes` decode to, but no more than `maximum` bytes of it. The rest is lost: after `maximum` bytes a body
    /// is not to be read on. None when they cannot be decoded.
    [[nodiscard]] virtual std::optional<QByteArray> decode(QByteArrayView bytes, qsizetype maximum) = 0;
};

} // namespace nookle
