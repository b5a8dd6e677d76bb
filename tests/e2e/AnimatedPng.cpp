#include "AnimatedPng.h"

#include <QBuffer>
#include <QFile>
#include <QtEndian>

#include <cstdint>

namespace nookle::e2e {

namespace {

[[nodiscard]] std::uint32_t checksum(const QByteArray& bytes)
{
    std::uint32_t sum = 0xffffffff;
    for (const char byte : bytes) {
        sum ^= static_cast<std::uint8_t>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xedb88320U : 0U);
    }
    return ~sum;
}

[[nodiscard]] QByteArray bigEndian(std::uint32_t number)
{
    QByteArray bytes(sizeof number, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

[[nodiscard]] QByteArray chunk(const QByteArray& type, const QByteArray& data)
{
    return bigEndian(static_cast<std::uint32_t>(data.size())) + type + data + bigEndian(checksum(type + data));
}

/// The data of all chunks of that type of a PNG.
[[nodiscard]] QByteArray dataOf(const QByteArray& png, const QByteArray& type)
{
    constexpr qsizetype signature = 8;
    constexpr qsizetype around = 12;
    QByteArray data;
    for (qsizetype at = signature; at + around <= png.size();) {
        const auto length = static_cast<qsizetype>(qFromBigEndian<std::uint32_t>(png.constData() + at));
        if (png.mid(at + 4, 4) == type)
            data += png.mid(at + 8, length);
        at += around + length;
    }
    return data;
}

[[nodiscard]] QByteArray png(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    constexpr int smallest = 0;
    picture.convertToFormat(QImage::Format_RGB888).save(&buffer, "PNG", smallest);
    return bytes;
}

[[nodiscard]] QRect changed(const QImage& before, const QImage& after)
{
    QRect area;
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            if (before.pixel(x, y) != after.pixel(x, y))
                area |= QRect(x, y, 1, 1);
        }
    }
    return area;
}

} // namespace

void AnimatedPng::add(const QImage& picture, int milliseconds)
{
    const QRect area = m_last.isNull() ? picture.rect() : changed(m_last, picture);
    if (area.isEmpty()) {
        m_frames.back().milliseconds += milliseconds;
        return;
    }
    m_frames.push_back({ picture.copy(area), area.topLeft(), milliseconds });
    m_last = picture;
}

bool AnimatedPng::save(const QString& path) const
{
    if (m_frames.empty())
        return false;
    const QByteArray first = png(m_frames.front().picture);
    QByteArray bytes = first.left(8) + chunk("IHDR", dataOf(first, "IHDR"));
    bytes += chunk("acTL", bigEndian(static_cast<std::uint32_t>(m_frames.size())) + bigEndian(0));
    std::uint32_t number = 0;
    for (const Frame& frame : m_frames) {
        QByteArray control = bigEndian(number++);
        for (const int value : { frame.picture.width(), frame.picture.height(), frame.place.x(), frame.place.y() })
            control += bigEndian(static_cast<std::uint32_t>(value));
        // Two numbers of 16 bits: the time in thousandths of a second. Neither cleared nor blended.
        control += bigEndian(static_cast<std::uint32_t>(frame.milliseconds) << 16 | 1000U) + QByteArray(2, '\0');
        bytes += chunk("fcTL", control);
        const QByteArray data = dataOf(png(frame.picture), "IDAT");
        bytes += &frame == &m_frames.front() ? chunk("IDAT", data) : chunk("fdAT", bigEndian(number++) + data);
    }
    bytes += chunk("IEND", {});
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace nookle::e2e
