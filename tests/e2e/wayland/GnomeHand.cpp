#include "GnomeHand.h"

#include <QDBusObjectPath>
#include <QDBusReply>

#include <utility>

namespace nookle::e2e {

namespace {

const QString service = QStringLiteral("org.gnome.Mutter.RemoteDesktop");

/// Further than any desktop is wide.
inline constexpr int farAway = 100000;

} // namespace

GnomeHand::GnomeHand(const QDBusConnection& bus, QString session)
    : m_bus(bus)
    , m_session(std::move(session))
{
}

std::unique_ptr<Hand> GnomeHand::tryTake(const QDBusConnection& bus)
{
    const QDBusReply<QDBusObjectPath> session = bus.call(QDBusMessage::createMethodCall(
        service, QStringLiteral("/org/gnome/Mutter/RemoteDesktop"), service, QStringLiteral("CreateSession")));
    if (!session.isValid())
        return nullptr;
    std::unique_ptr<GnomeHand> hand(new GnomeHand(bus, session.value().path()));
    if (hand->tell(QStringLiteral("Start")).type() == QDBusMessage::ErrorMessage)
        return nullptr;
    // Movements are relative, so the pointer begins where it cannot go any further.
    hand->moveBy(QPoint(-farAway, -farAway));
    // Programs learn that there is a keyboard with its first key, which they miss.
    constexpr uint shift = 42;
    for (const bool isDown : { true, false })
        static_cast<void>(hand->tell(QStringLiteral("NotifyKeyboardKeycode"), { shift, isDown }));
    return hand;
}

QDBusMessage GnomeHand::callOf(const QString& method, const QVariantList& arguments) const
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(service, m_session, service + QStringLiteral(".Session"), method);
    message.setArguments(arguments);
    return message;
}

QDBusMessage GnomeHand::tell(const QString& method, const QVariantList& arguments) const
{
    const QDBusMessage reply = m_bus.call(callOf(method, arguments));
    if (reply.type() == QDBusMessage::ErrorMessage)
        qWarning("%s fails: %s", qPrintable(method), qPrintable(reply.errorMessage()));
    return reply;
}

void GnomeHand::placePointer(const QPoint& point)
{
    moveBy(point - m_place);
    m_place = point;
}

void GnomeHand::sendPointer(const QPoint& point)
{
    const QPoint way = point - m_place;
    m_place = point;
    m_bus.send(callOf(QStringLiteral("NotifyPointerMotionRelative"), { double(way.x()), double(way.y()) }));
}

void GnomeHand::moveBy(const QPoint& way) const
{
    static_cast<void>(tell(QStringLiteral("NotifyPointerMotionRelative"), { double(way.x()), double(way.y()) }));
}

void GnomeHand::pushButton(Button which, bool isDown)
{
    static_cast<void>(tell(QStringLiteral("NotifyPointerButton"), { static_cast<int>(which), isDown }));
}

void GnomeHand::pushKey(Key key, bool isDown)
{
    static_cast<void>(tell(QStringLiteral("NotifyKeyboardKeycode"), { static_cast<uint>(key), isDown }));
}

void GnomeHand::scroll(double points, int notches)
{
    constexpr uint vertical = 0;
    constexpr uint noFlags = 0;
    if (notches == 0)
        static_cast<void>(tell(QStringLiteral("NotifyPointerAxis"), { 0.0, points, noFlags }));
    else
        static_cast<void>(tell(QStringLiteral("NotifyPointerAxisDiscrete"), { vertical, notches }));
}

} // namespace nookle::e2e
