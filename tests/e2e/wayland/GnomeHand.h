#pragma once

#include "Hand.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QString>

#include <memory>

namespace nookle::e2e {

/// The mouse and the keyboard that GNOME Shell lends to a program that controls the desktop from afar.
class GnomeHand final : public Hand {
public:
    /// Null when the shell lends none.
    [[nodiscard]] static std::unique_ptr<Hand> tryTake(const QDBusConnection& bus);

protected:
    void placePointer(const QPoint& point) override;
    void sendPointer(const QPoint& point) override;
    void pushButton(Button button, bool isDown) override;
    void pushKey(Key key, bool isDown) override;
    void scroll(double points, int notches) override;

private:
    GnomeHand(const QDBusConnection& bus, QString session);
    void moveBy(const QPoint& way) const;
    [[nodiscard]] QDBusMessage callOf(const QString& method, const QVariantList& arguments) const;
    [[nodiscard]] QDBusMessage tell(const QString& method, const QVariantList& arguments = {}) const;

    QDBusConnection m_bus;
    QString m_session;
    QPoint m_place;
};

} // namespace nookle::e2e
