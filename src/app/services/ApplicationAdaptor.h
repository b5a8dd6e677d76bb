#pragma once

#include <QDBusAbstractAdaptor>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace nookle {

class BusService;

/// The bus interface with which a desktop starts programs and opens files with them.
class ApplicationAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(BusService& service);

public Q_SLOTS:
    /// `platformData`, here and below, concerns windows and start-up feedback. The shelf ignores it.
    void Activate(const QVariantMap& platformData) const;
    void Open(const QStringList& uris, const QVariantMap& platformData) const;
    /// The actions are "add-selection", "toggle", and "focus" for a key that the user binds. Other names do nothing.
    void ActivateAction(const QString& name, const QVariantList& parameters, const QVariantMap& platformData) const;

private:
    BusService& m_service;
};

} // namespace nookle
