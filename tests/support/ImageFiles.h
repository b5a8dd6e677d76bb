#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QImageWriter>
#include <QtEndian>

namespace nookle {

/// A picture of one colour.
[[nodiscard]] inline QImage plainImage(int width, int height, const QColor& colour = Qt::red)
{
    QImage image(width, height, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

/// The bytes of a file that holds `image` in `format`.
[[nodiscard]] inline QByteArray encoded(const QImage& image, const char* format)
{
    QBuffer buffer;
    QImageWriter writer(&buffer, format);
    if (!writer.write(image))
        qFatal("an image could not be written");
    return buffer.data();
}

[[nodiscard]] inline QByteArray bigEndian(quint32 number)
{
    QByteArray bytes(sizeof number, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

/// One chunk of a PNG file. The decoder is told of a wrong checksum only by the chunks that it needs.
[[nodiscard]] inline QByteArray pngChunk(const QByteArray& type, const QByteArray& data)
{
    quint32 sum = 0xffffffff;
    for (const char byte : QByteArray(type + data)) {
        sum ^= static_cast<quint8>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xedb88320U : 0U);
    }
    return bigEndian(static_cast<quint32>(data.size())) + type + data + bigEndian(~sum);
}

/// A complete PNG of black pixels, one bit each: a small file whatever its sides are.
[[nodiscard]] inline QByteArray blackPng(int side)
{
    const qsizetype rowBytes = 1 + (side + 7) / 8;
    // What goes before the compressed bytes is the length, which PNG does without.
    const QByteArray pixels = qCompress(QByteArray(rowBytes * side, '\0')).mid(sizeof(quint32));
    const QByteArray header =
        bigEndian(static_cast<quint32>(side)) + bigEndian(static_cast<quint32>(side)) + QByteArray("\x01\0\0\0\0", 5);
    return QByteArray("\x89PNG\r\n\x1a\n") + pngChunk("IHDR", header) + pngChunk("IDAT", pixels) + pngChunk("IEND", {});
}

/// A GIF of one pixel, red in the first frame and blue in the second.
[[nodiscard]] inline QByteArray animatedGif()
{
    const auto frame = [](int colour) -> QByteArray {
        // Lempel-Ziv codes of three bits: clear, the colour, end.
        const int codes = 0x04 | (colour << 3) | (0x05 << 6);
        return QByteArray("\x21\xf9\x04\x00\x0a\x00\x00\x00", 8) + QByteArray("\x2c\0\0\0\0\x01\0\x01\0\0", 10)
            + QByteArray("\x02\x02", 2) + char(codes & 0xff) + char(codes >> 8) + QByteArray("\x00", 1);
    };
    return QByteArray("GIF89a\x01\0\x01\0\x80\0\0", 13) + QByteArray("\xff\0\0\0\0\xff", 6) + frame(0) + frame(1) + ';';
}

/// An icon file that holds each of `images` as PNG.
[[nodiscard]] inline QByteArray iconFile(const QList<QImage>& images)
{
    const auto little = [](auto number) {
        QByteArray bytes(sizeof number, '\0');
        qToLittleEndian(number, bytes.data());
        return bytes;
    };
    QByteArray entries = little(quint16(0)) + little(quint16(1)) + little(quint16(images.size()));
    QByteArray data;
    const qsizetype dataStart = 6 + 16 * images.size();
    for (const QImage& image : images) {
        const QByteArray png = encoded(image, "png");
        entries += char(image.width() % 256);
        entries += char(image.height() % 256);
        entries += little(quint16(0)) + little(quint16(1)) + little(quint16(32));
        entries += little(quint32(png.size())) + little(quint32(dataStart + data.size()));
        data += png;
    }
    return entries + data;
}

} // namespace nookle
