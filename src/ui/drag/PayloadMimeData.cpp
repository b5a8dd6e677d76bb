#include "PayloadMimeData.h"

#include "UriList.h"

#include <QUrl>
#include <QVariant>

#include <utility>

namespace nookle {

namespace {

[[nodiscard]] QVariantList addressList(const QByteArray& list)
{
    QVariantList addresses;
    for (const QString& address : uriListAddresses(list))
        addresses.append(QUrl::fromEncoded(address.toLatin1()));
    return addresses;
}

} // namespace

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

// On Wayland the toolkit asks for addresses and texts in its own types, and hands over what it makes of those.
QVariant PayloadMimeData::retrieveData(const QString& format, QMetaType preferredType) const
{
    const auto bytes = m_payload->data(format);
    if (!bytes)
        return {};
    if (preferredType.id() == QMetaType::QVariantList)
        return addressList(*bytes);
    return *bytes;
}

} // namespace nookle
