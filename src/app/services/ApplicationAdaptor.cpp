#include "ApplicationAdaptor.h"

#include "BusService.h"

namespace nookle {

ApplicationAdaptor::ApplicationAdaptor(BusService& service)
    : QDBusAbstractAdaptor(&service)
    , m_service(service)
{
}

void ApplicationAdaptor::Activate(const QVariantMap& /*platformData*/) const
{
    m_service.onActivate();
}

void ApplicationAdaptor::Open(const QStringList& uris, const QVariantMap& /*platformData*/) const
{
    m_service.onOpen(uris);
}

void ApplicationAdaptor::ActivateAction(const QString& name, const QVariantList& /*parameters*/,
                                        const QVariantMap& /*platformData*/) const
{
    if (name == QLatin1String("add-selection"))
        m_service.onAddSelection();
    else if (name == QLatin1String("toggle"))
        m_service.onToggle();
    else if (name == QLatin1String("focus"))
        m_service.onFocus();
}

} // namespace nookle
