#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <optional>

namespace nookle {

// What the program and its image decoder say to each other over a socket of their own. The decoder begins with a
// greeting and then answers requests in the order in which they came. Each request comes with one descriptor, open for
// reading on the image. What the decoder sends counts as hostile: an image may have taken it over.

/// What a decoder says once it is ready.
inline constexpr QByteArrayView decoderGreeting("nookle-decode-1\n");

/// What to do with an image.
struct DecodeRequest {
    enum class Purpose : quint8 {
        /// The pixels of the image, made to fit into a square of `side` pixels.
        thumbnail = 1,
        /// The same of a thumbnail that another program has left, unless it belongs to another file or another state of
        /// it than `uri` and `modificationTime` say.
        savedThumbnail = 2,
        /// The image as PNG. Images with a longer side than `side` are refused.
        conversion = 3,
    };

    Purpose purpose = Purpose::thumbnail;
    int side = 0;
    /// The side of the thumbnail to make a PNG of as well, for other programs; 0 for none.
    int savedSide = 0;
    QByteArray uri;
    /// Seconds since 1970.
    qint64 modificationTime = 0;
    qint64 fileSize = 0;

    [[nodiscard]] QByteArray encode() const;

    /// Nothing for bytes that `encode` cannot have written.
    [[nodiscard]] static std::optional<DecodeRequest> decode(const QByteArray& bytes);

    /// No encoded request is longer.
    inline static constexpr quint32 longest = 65'536;

    bool operator==(const DecodeRequest&) const = default;
};

/// The answer to one request. Without pixels and without PNG it says that there is no image.
struct DecodeReply {
    int width = 0;
    int height = 0;
    /// Rows from the top, four bytes a pixel, as in `Picture`.
    QByteArray pixels;
    QByteArray png;

    [[nodiscard]] QByteArray encode() const;

    /// Nothing for bytes that an honest decoder does not answer `request` with.
    [[nodiscard]] static std::optional<DecodeReply> decode(const QByteArray& bytes, const DecodeRequest& request);

    /// No encoded reply to `request` is longer.
    [[nodiscard]] static quint32 longest(const DecodeRequest& request);

    bool operator==(const DecodeReply&) const = default;
};

} // namespace nookle
