#include "DropCapture.h"
#include "DropImage.h"
#include "FakeDropPayload.h"
#include "FileUrl.h"
#include "ImageType.h"
#include "LinkUrl.h"

#include <array>
#include <cstddef>
#include <cstdint>

using namespace nookle;

namespace {

constexpr std::array formats{
    "text/uri-list",
    "text/x-moz-url",
    "_NETSCAPE_URL",
    "text/x-moz-url-desc",
    "text/plain",
    "text/plain;charset=utf-8",
    "text/plain;charset=utf-16",
    "text/plain;charset=iso-8859-1",
    "UTF8_STRING",
    "STRING",
    "application/vnd.portal.filetransfer",
    "application/octet-stream",
    "text/html",
    "image/png",
    "x-special/gnome-copied-files",
    "image/svg+xml",
    "application/x-moz-file-promise-dest-filename",
};

constexpr const char* separator = "\n--\n";

/// The parts of the input are the formats of one drop; the first byte of each says which format it is.
[[nodiscard]] FakeDropPayload payloadOf(const QByteArray& input)
{
    FakeDropPayload payload;
    qsizetype start = 0;
    while (start < input.size()) {
        const qsizetype found = input.indexOf(separator, start);
        const qsizetype end = found < 0 ? input.size() : found;
        if (end > start) {
            const auto which = static_cast<unsigned char>(input.at(start)) % formats.size();
            payload.offer(formats.at(which), input.mid(start + 1, end - start - 1));
        }
        start = end + qsizetype(qstrlen(separator));
    }
    return payload;
}

/// A name that stays in its folder, and by which no program takes the image for something else.
[[nodiscard]] bool isSafeName(const QString& name)
{
    return !name.isEmpty() && !name.contains(QLatin1Char('/'))
        && (isImageName(name) || !name.contains(QLatin1Char('.')));
}

} // namespace

/// Whatever a source delivers, its elements can be taken apart, and a path or a name that comes out is one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const FakeDropPayload payload =
        payloadOf(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    static_cast<void>(offersDropItems(payload));
    if (const auto image = loadDropImage(payload); image && !isSafeName(imageFileName(*image)))
        __builtin_trap();
    const CapturedDrop drop = captureDrop(payload);
    for (const DropItem& item : drop.items) {
        if (!item.address)
            continue;
        static_cast<void>(LinkUrl::parse(item.address->url));
        const QByteArray path = filePath(QUrl::fromEncoded(item.address->url.toUtf8()));
        if (!path.isEmpty() && (!path.startsWith('/') || path.contains('\0')))
            __builtin_trap();
    }
    return 0;
}
