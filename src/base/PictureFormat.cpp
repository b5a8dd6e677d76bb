#include "PictureFormat.h"

#include <algorithm>
#include <array>

namespace nookle {

namespace {

struct Signature {
    QByteArrayView format;
    QByteArrayView start;
    /// Further bytes at `offset`, for formats whose first bytes are not distinctive enough.
    qsizetype offset = 0;
    QByteArrayView inside{};
};

using namespace std::string_view_literals;

[[nodiscard]] constexpr QByteArrayView bytes(std::string_view text)
{
    return { text.data(), static_cast<qsizetype>(text.size()) };
}

constexpr QByteArrayView pngSignature = bytes("\x89PNG\r\n\x1a\n"sv);

constexpr std::array signatures{
    Signature{ bytes("png"sv), pngSignature },
    Signature{ bytes("jpeg"sv), bytes("\xff\xd8\xff"sv) },
    Signature{ bytes("gif"sv), bytes("GIF87a"sv) },
    Signature{ bytes("gif"sv), bytes("GIF89a"sv) },
    Signature{ bytes("webp"sv), bytes("RIFF"sv), 8, bytes("WEBPVP8"sv) },
    Signature{ bytes("bmp"sv), bytes("BM"sv), 6, bytes("\0\0\0\0"sv) },
    Signature{ bytes("ico"sv), bytes("\0\0\1\0"sv), 5, bytes("\0"sv) },
    Signature{ bytes("tiff"sv), bytes("II*\0"sv) },
    Signature{ bytes("tiff"sv), bytes("MM\0*"sv) },
    Signature{ bytes("pbm"sv), bytes("P4\n"sv) },
    Signature{ bytes("pgm"sv), bytes("P5\n"sv) },
    Signature{ bytes("ppm"sv), bytes("P6\n"sv) },
};

[[nodiscard]] bool matches(const Signature& signature, QByteArrayView start)
{
    if (!start.startsWith(signature.start) || start.size() < signature.offset + signature.inside.size())
        return false;
    return start.sliced(signature.offset).startsWith(signature.inside);
}

} // namespace

QByteArray pixelFormat(QByteArrayView start)
{
    const auto* found = std::find_if(signatures.begin(), signatures.end(),
                                     [start](const Signature& signature) { return matches(signature, start); });
    return found == signatures.end() ? QByteArray() : found->format.toByteArray();
}

bool isPngStart(QByteArrayView start)
{
    return start.startsWith(pngSignature);
}

bool looksLikeXml(QByteArrayView start)
{
    if (start.startsWith("\xef\xbb\xbf"))
        start = start.sliced(3);
    return start.trimmed().startsWith('<');
}

} // namespace nookle
