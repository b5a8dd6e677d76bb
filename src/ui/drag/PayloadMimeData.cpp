#include "PayloadMimeData.h"

#include <utility>

namespace nookle {

PayloadMimeData::PayloadMimeData(std::shared_ptr<const DragPayload> payload)
    : m_payload(std::move(payload))
{
}

QStringList PayloadMimeData::formats() const
{
    return m_payload->formats();
}

bool PayloadMimeData::hasFormat(const QString& format) const
{
    return formats().contains(format);
}

QVariant PayloadMimeData::retrieveData(const QString& format, QMetaType /*preferredType*/) const
{
    const auto bytes = m_payload->data(format);
    return bytes ? QVariant(*bytes) : QVariant();
}

} // namespace nookle
