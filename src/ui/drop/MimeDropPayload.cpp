#include "MimeDropPayload.h"

#include <QMimeData>

namespace nookle {

MimeDropPayload::MimeDropPayload(const QMimeData& data)
    : m_data(data)
{
}

QStringList MimeDropPayload::formats() const
{
    return m_data.formats();
}

QByteArray MimeDropPayload::data(const QString& format) const
{
    return m_data.data(format);
}

} // namespace nookle
