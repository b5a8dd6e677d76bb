#pragma once

#include <QDBusAbstractAdaptor>
#include <QDBusMessage>
#include <QStringList>

namespace nookle {

class BusService;

/// The program's own bus interface.
class ShelfAdaptor final : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.nookle.Nookle1")
    Q_PROPERTY(QString Version READ version CONSTANT)

public:
    explicit ShelfAdaptor(BusService& service);

    /// The version of the program.
    [[nodiscard]] QString version() const;

public Q_SLOTS:
    /// Adds the files in `uris`, or else `text` (empty for none). The message of an error reply is a text for the user.
    void AddToShelf(const QStringList& uris, const QString& text, const QDBusMessage& message) const;

private:
    BusService& m_service;
};

} // namespace nookle
