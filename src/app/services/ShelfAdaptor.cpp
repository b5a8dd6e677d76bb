#include "ShelfAdaptor.h"

#include "BusService.h"
#include "ProgramVersion.h"

#include <QDBusConnection>

namespace nookle {

ShelfAdaptor::ShelfAdaptor(BusService& service)
    : QDBusAbstractAdaptor(&service)
    , m_service(service)
{
}

QString ShelfAdaptor::version() const
{
    return programVersion();
}

void ShelfAdaptor::AddToShelf(const QStringList& uris, const QString& text, const QDBusMessage& message) const
{
    const auto failure = m_service.onAdd(servicePasteboard(uris, text));
    if (!failure)
        return;
    message.setDelayedReply(true);
    QDBusConnection::sessionBus().send(
        message.createErrorReply(QStringLiteral("org.nookle.Nookle1.Error.NothingToAdd"), failure->description));
}

} // namespace nookle
