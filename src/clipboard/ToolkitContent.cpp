#include "ToolkitContent.h"

#include <utility>

namespace nookle {

namespace {

/// In milliseconds. The toolkit itself waits for each format of a program that does not answer.
inline constexpr qint64 patience = 1000;

} // namespace

ToolkitContent::ToolkitContent(const QMimeData* data)
    : m_data(data)
{
    m_sinceStart.start();
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
    return m_data && m_sinceStart.elapsed() < patience ? m_data->data(format) : QByteArray();
}

} // namespace nookle
