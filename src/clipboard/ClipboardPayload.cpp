#include "ClipboardPayload.h"

namespace nookle {

namespace {

/// In milliseconds. The toolkit itself waits for each format of a program that does not answer.
inline constexpr qint64 patience = 1000;

} // namespace

ClipboardPayload::ClipboardPayload(const QMimeData* data)
    : m_data(data)
{
    m_sinceStart.start();
    if (m_data)
        m_formats = m_data->formats();
}

QByteArray ClipboardPayload::data(const QString& format) const
{
    return m_data && m_sinceStart.elapsed() < patience ? m_data->data(format) : QByteArray();
}

} // namespace nookle
