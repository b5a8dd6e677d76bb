#include "FrameReader.h"

#include <QtEndian>

namespace nookle {

void FrameReader::append(QByteArrayView bytes)
{
    m_bytes.append(bytes);
}

std::variant<FrameReader::Incomplete, FrameReader::Nonsense, FrameReader::Greeted>
FrameReader::takeGreeting(QByteArrayView greeting)
{
    if (!greeting.startsWith(m_bytes.left(greeting.size())))
        return Nonsense();
    if (m_bytes.size() < greeting.size())
        return Incomplete();
    m_bytes.remove(0, greeting.size());
    return Greeted();
}

std::variant<FrameReader::Incomplete, FrameReader::Nonsense, QByteArray> FrameReader::takeMessage(quint32 longest)
{
    constexpr qsizetype headerSize = sizeof(quint32);
    if (m_bytes.size() < headerSize)
        return Incomplete();
    const auto size = qFromBigEndian<quint32>(m_bytes.constData());
    if (size > longest)
        return Nonsense();
    if (m_bytes.size() < headerSize + qsizetype(size))
        return Incomplete();
    QByteArray message = m_bytes.mid(headerSize, size);
    m_bytes.remove(0, headerSize + qsizetype(size));
    return message;
}

} // namespace nookle
