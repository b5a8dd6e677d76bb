#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <optional>

namespace nookle {

// The protocol between the program and its image decoder, over a socket of their own. The decoder sends a greeting and
// then answers requests in their order. Each request comes with one descriptor from which the image can be read.
// Everything that the decoder sends counts as hostile: a malicious image may have taken it over.

/// The decoder sends this when it is ready.
inline constexpr QByteArrayView decoderGreeting("nookle-decode-1\n");

/// What to do with an image.
struct DecodeRequest {
    enum class Purpose : quint8 {
        /// The pixels of the image, reduced to fit into a square of `side` pixels.
        thumbnail = 1,
        /// The pixels of a thumbnail that another program has saved, reduced like `thumbnail`. No image if the saved
        /// thumbnail does not belong to `uri` and `modificationTime`.
        savedThumbnail = 2,
        /// The image as PNG. Images with a longer side than `side` are refused.
        conversion = 3,
    };

    Purpose purpose = Purpose::thumbnail;
    int side = 0;
    /// The side of an additional thumbnail as PNG, for other programs; 0 for none.
    int savedSide = 0;
    QByteArray uri;
    /// Seconds since 1970.
    qint64 modificationTime = 0;
    qint64 fileSize = 0;

    [[nodiscard]] QByteArray encode() const;

    /// None for bytes that `encode` cannot have written.
    [[nodiscard]] static std::optional<DecodeRequest> decode(const QByteArray& bytes);

    /// The maximum size of an encoded request, in bytes.
    inline static constexpr quint32 longest = 65'536;

    bool operator==(const DecodeRequest&) const = default;
};

/// The answer to one request. Empty `pixels` and `png` mean that there is no image.
struct DecodeReply {
    int width = 0;
    int height = 0;
    /// Rows from the top, four bytes a pixel, as in `Picture`.
    QByteArray pixels;
    QByteArray png;

    [[nodiscard]] QByteArray encode() const;

    /// None for bytes that are not a valid answer to `request`.
    [[nodiscard]] static std::optional<DecodeReply> decode(const QByteArray& bytes, const DecodeRequest& request);

    /// The maximum size of an encoded reply to `request`, in bytes.
    [[nodiscard]] static quint32 longest(const DecodeRequest& request);

    bool operator==(const DecodeReply&) const = default;
};

} // namespace nookle
