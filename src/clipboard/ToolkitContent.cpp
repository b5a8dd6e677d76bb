#include "ToolkitContent.h"

#include <utility>

namespace nookle {

namespace {

/// The toolkit itself waits for each format of a program that does not answer.
inline constexpr std::chrono::seconds patience{ 1 };

} // namespace

ToolkitContent::ToolkitContent(const QMimeData* data, Read read)
    : m_read(std::move(read))
    , m_deadline(Clock::now() + patience)
    , m_data(data)
{
}

QByteArray ToolkitContent::readToTheEnd(const QMimeData& data, const QString& format, Clock::time_point /*deadline*/)
{
    return data.data(format);
}

void ToolkitContent::askFormats(Formats answer)
{
    const auto ask = [this, answer = std::move(answer)] { answer(m_data ? m_data->formats() : QStringList()); };
    QMetaObject::invokeMethod(this, ask, Qt::QueuedConnection);
}

void ToolkitContent::askData(const QString& format, Bytes answer)
{
    const auto ask = [this, format, answer = std::move(answer)] { answer(data(format)); };
    QMetaObject::invokeMethod(this, ask, Qt::QueuedConnection);
}

QByteArray ToolkitContent::data(const QString& format) const
{
    return m_data && Clock::now() < m_deadline ? m_read(*m_data, format, m_deadline) : QByteArray();
}

} // namespace nookle
