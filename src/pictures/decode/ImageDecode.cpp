#include "ImageDecode.h"

#include "CleanedSvg.h"
#include "PictureFormat.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>

#include <algorithm>

namespace nookle {

namespace {

// Enough for a picture of 50 million pixels. A JPEG may be far larger, because it is reduced while it is decoded.
inline constexpr int mostMegabytes = 192;

// In bytes. Longer drawings would take too long.
inline constexpr qint64 longestDrawing = 16 << 20;

inline constexpr int largestIcon = 256;

/// A reader for an image, and the cleaned bytes of a drawing, which is not read from the file itself.
struct Source {
    QBuffer drawing;
    QImageReader reader;
};

// A drawing may need fonts, which require an application object. It is made only then, because other images do not need
// it.
void prepareForText()
{
    if (QCoreApplication::instance() != nullptr)
        return;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static char name[] = "nookle-decode";
    static char* arguments[] = { name, nullptr };
    static QGuiApplication application(count, arguments);
}

[[nodiscard]] bool openDrawing(QIODevice& file, Source& source)
{
    if (file.size() > longestDrawing)
        return false;
    const auto drawing = cleanedSvg(file.readAll());
    if (!drawing)
        return false;
    prepareForText();
    source.drawing.setData(*drawing);
    source.drawing.open(QIODevice::ReadOnly);
    source.reader.setDevice(&source.drawing);
    source.reader.setFormat("svg");
    return true;
}

[[nodiscard]] bool open(QIODevice& file, Source& source)
{
    QImageReader::setAllocationLimit(mostMegabytes);
    source.reader.setAutoDetectImageFormat(false);
    source.reader.setAutoTransform(true);
    const QByteArray start = file.peek(contentSample);
    const QByteArray format = pixelFormat(start);
    if (format.isEmpty())
        return looksLikeXml(start) && openDrawing(file, source);
    source.reader.setDevice(&file);
    source.reader.setFormat(format);
    return true;
}

// An icon file holds the same icon in several sizes.
void selectBestSize(QImageReader& reader, int maximumSide)
{
    if (reader.format() != "ico")
        return;
    const int most = std::min(maximumSide, largestIcon);
    int best = 0;
    int bestSide = 0;
    for (int index = 0; index < reader.imageCount() && reader.jumpToImage(index); ++index) {
        const QSize size = reader.size();
        const int side = std::max(size.width(), size.height());
        if (side > bestSide && side <= most) {
            best = index;
            bestSide = side;
        }
    }
    reader.jumpToImage(best);
}

[[nodiscard]] QSize fitted(QSize size, int side)
{
    if (size.width() <= side && size.height() <= side)
        return size;
    return size.scaled(side, side, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

[[nodiscard]] QImage scaled(const QImage& image, int side)
{
    const QSize size = fitted(image.size(), side);
    return size == image.size() ? image : image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

[[nodiscard]] QImage readFitting(QIODevice& file, int side)
{
    Source source;
    if (!open(file, source))
        return {};
    selectBestSize(source.reader, largestIcon);
    // A later rotation of the image does not matter, because it must fit into a square.
    const QSize size = source.reader.size();
    if (size.isEmpty())
        return {};
    if (const QSize wanted = fitted(size, side); wanted != size)
        source.reader.setScaledSize(wanted);
    return scaled(source.reader.read(), side);
}

[[nodiscard]] QImage readWhole(QIODevice& file, int maximumSide)
{
    Source source;
    if (!open(file, source))
        return {};
    selectBestSize(source.reader, maximumSide);
    const auto isTooLarge = [maximumSide](QSize size) { return std::max(size.width(), size.height()) > maximumSide; };
    const QSize size = source.reader.size();
    if (size.isEmpty() || isTooLarge(size))
        return {};
    const QImage image = source.reader.read();
    // The sizes that an icon file declares may be wrong.
    return isTooLarge(image.size()) ? QImage() : image;
}

[[nodiscard]] QImage readSaved(QIODevice& file, const DecodeRequest& request)
{
    if (pixelFormat(file.peek(contentSample)) != "png")
        return {};
    QImageReader reader(&file, "png");
    QImageReader::setAllocationLimit(mostMegabytes);
    const QImage image = reader.read();
    const bool belongs = image.text(QStringLiteral("Thumb::URI")).toUtf8() == request.uri
        && image.text(QStringLiteral("Thumb::MTime")) == QString::number(request.modificationTime);
    return belongs ? scaled(image, request.side) : QImage();
}

[[nodiscard]] QByteArray png(const QImage& image)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, "png");
    return writer.write(image) ? buffer.data() : QByteArray();
}

[[nodiscard]] QByteArray savedPng(QImage image, const DecodeRequest& request)
{
    image.setText(QStringLiteral("Thumb::URI"), QString::fromLatin1(request.uri));
    image.setText(QStringLiteral("Thumb::MTime"), QString::number(request.modificationTime));
    image.setText(QStringLiteral("Thumb::Size"), QString::number(request.fileSize));
    image.setText(QStringLiteral("Software"), QStringLiteral("Nookle"));
    return png(image);
}

[[nodiscard]] QImage withoutTexts(QImage image)
{
    const QStringList keys = image.textKeys();
    for (const QString& key : keys)
        image.setText(key, QString());
    return image;
}

[[nodiscard]] DecodeReply pixelReply(const QImage& image)
{
    if (image.isNull())
        return {};
    const QImage plain = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const auto* bits = reinterpret_cast<const char*>(plain.constBits());
    return { plain.width(), plain.height(), QByteArray(bits, plain.sizeInBytes()), QByteArray() };
}

} // namespace

DecodeReply decodeImage(QIODevice& file, const DecodeRequest& request)
{
    switch (request.purpose) {
    case DecodeRequest::Purpose::savedThumbnail:
        return pixelReply(readSaved(file, request));
    case DecodeRequest::Purpose::conversion: {
        const QImage image = readWhole(file, request.side);
        return image.isNull() ? DecodeReply() : DecodeReply{ 0, 0, QByteArray(), png(withoutTexts(image)) };
    }
    case DecodeRequest::Purpose::thumbnail:
        break;
    }
    const QImage image = withoutTexts(readFitting(file, std::max(request.side, request.savedSide)));
    DecodeReply reply = pixelReply(scaled(image, request.side));
    if (request.savedSide > 0 && !image.isNull())
        reply.png = savedPng(scaled(image, request.savedSide), request);
    return reply;
}

} // namespace nookle
