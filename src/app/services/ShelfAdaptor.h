#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QStringList>

namespace nookle {

class BusService;

/// The program's own interface on the bus.
class ShelfAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.nookle.Nookle1")

public:
    explicit ShelfAdaptor(BusService& service);

public Q_SLOTS:
    /// Adds the files of `uris`, or else `text`, which is empty when there is none. The error's message is for the
    /// user.
    void AddToShelf(const QStringList& uris, const QString& text, const QDBusMessage& message) const;

private:
    BusService& m_service;
};

} // namespace nookle
