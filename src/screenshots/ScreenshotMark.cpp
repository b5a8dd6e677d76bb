#include "ScreenshotMark.h"

#include "PictureFormat.h"
#include "PngText.h"
#include "RegularFile.h"
#include "ScreenshotNames.h"

#include <QMimeDatabase>

#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>

namespace nookle {

namespace {

constexpr const char* attribute = "user.com.apple.metadata:kMDItemIsScreenCapture";

[[nodiscard]] bool hasAttribute(const QByteArray& path)
{
    return ::getxattr(path.constData(), attribute, nullptr, 0) >= 0;
}

[[nodiscard]] QByteArray startOf(int descriptor)
{
    constexpr size_t enoughToTell = 512;
    QByteArray start(enoughToTell, Qt::Uninitialized);
    const ssize_t size = ::pread(descriptor, start.data(), enoughToTell, 0);
    start.truncate(size < 0 ? 0 : static_cast<qsizetype>(size));
    return start;
}

[[nodiscard]] bool isWrittenByScreenshotTool(const PngText& texts)
{
    const auto software = texts.find("Software");
    if (software != texts.end() && (software->second == "gnome-screenshot" || software->second == "mate-screenshot"))
        return true;
    static const std::array<QByteArray, 3> keys{ "windowTitle", "screen", "logicalX" };
    return std::any_of(keys.begin(), keys.end(), [&texts](const QByteArray& key) { return texts.contains(key); });
}

[[nodiscard]] bool isImage(const QByteArray& start)
{
    return QMimeDatabase().mimeTypeForData(start).name().startsWith(QLatin1String("image/"));
}

} // namespace

bool hasScreenshotMark(const QByteArray& path)
{
    if (hasAttribute(path))
        return true;
    const auto file = RegularFile::open(path, RegularFile::Links::follow);
    if (!file)
        return false;
    const bool hasName = isScreenshotName(path.mid(path.lastIndexOf('/') + 1), translatedScreenshot());
    const QByteArray start = startOf(file->descriptor.get());
    if (!isPngStart(start))
        return hasName && isImage(start);
    // None while the picture is not completely written.
    const auto texts = readPngText(file->descriptor.get());
    return texts && (hasName || isWrittenByScreenshotTool(*texts));
}

} // namespace nookle
