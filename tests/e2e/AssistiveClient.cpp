#include "AssistiveClient.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>

namespace nookle::e2e {

namespace {

const QString sessionConnection = QStringLiteral("assistive-session");
const QString treeConnection = QStringLiteral("assistive-tree");
const QString accessibleInterface = QStringLiteral("org.a11y.atspi.Accessible");
const QString selectionInterface = QStringLiteral("org.a11y.atspi.Selection");
const QString actionInterface = QStringLiteral("org.a11y.atspi.Action");

[[nodiscard]] QDBusMessage busCall(const QString& interface, const QString& method)
{
    return QDBusMessage::createMethodCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"), interface,
                                          method);
}

} // namespace

std::unique_ptr<AssistiveClient> AssistiveClient::tryCreate(const QString& sessionBusAddress)
{
    const QDBusConnection session = QDBusConnection::connectToBus(sessionBusAddress, sessionConnection);
    QDBusMessage enable = busCall(QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Set"));
    enable << QStringLiteral("org.a11y.Status") << QStringLiteral("IsEnabled")
           << QVariant::fromValue(QDBusVariant(true));
    if (session.call(enable).type() != QDBusMessage::ReplyMessage)
        return nullptr;
    const QDBusMessage address = session.call(busCall(QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
    const QDBusConnection tree = QDBusConnection::connectToBus(address.arguments().value(0).toString(), treeConnection);
    if (!tree.isConnected())
        return nullptr;
    return std::unique_ptr<AssistiveClient>(new AssistiveClient(tree));
}

AssistiveClient::AssistiveClient(const QDBusConnection& bus)
    : m_bus(bus)
{
}

AssistiveClient::~AssistiveClient()
{
    QDBusConnection::disconnectFromBus(treeConnection);
    QDBusConnection::disconnectFromBus(sessionConnection);
}

QDBusMessage AssistiveClient::call(const Node& node, const QString& interface, const QString& method,
                                   const QVariantList& arguments) const
{
    QDBusMessage message = QDBusMessage::createMethodCall(node.service, node.path.path(), interface, method);
    message.setArguments(arguments);
    return m_bus.call(message);
}

QVariant AssistiveClient::property(const Node& node, const QString& interface, const QString& name) const
{
    const QDBusMessage reply =
        call(node, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"), { interface, name });
    return reply.type() == QDBusMessage::ReplyMessage ? reply.arguments().value(0).value<QDBusVariant>().variant()
                                                      : QVariant();
}

std::vector<AssistiveClient::Node> AssistiveClient::programs() const
{
    return children({ QStringLiteral("org.a11y.atspi.Registry"),
                      QDBusObjectPath(QStringLiteral("/org/a11y/atspi/accessible/root")) });
}

std::vector<AssistiveClient::Node> AssistiveClient::children(const Node& node) const
{
    std::vector<Node> found;
    const QDBusMessage reply = call(node, accessibleInterface, QStringLiteral("GetChildren"));
    if (reply.type() != QDBusMessage::ReplyMessage)
        return found;
    const auto list = reply.arguments().value(0).value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        Node child;
        list.beginStructure();
        list >> child.service >> child.path;
        list.endStructure();
        found.push_back(child);
    }
    list.endArray();
    return found;
}

std::optional<AssistiveClient::Node> AssistiveClient::find(const Node& node, const QString& wantedRole) const
{
    if (role(node) == wantedRole)
        return node;
    for (const Node& child : children(node)) {
        if (auto found = find(child, wantedRole))
            return found;
    }
    return std::nullopt;
}

QString AssistiveClient::role(const Node& node) const
{
    return call(node, accessibleInterface, QStringLiteral("GetRoleName")).arguments().value(0).toString();
}

QString AssistiveClient::name(const Node& node) const
{
    return property(node, accessibleInterface, QStringLiteral("Name")).toString();
}

QString AssistiveClient::description(const Node& node) const
{
    return property(node, accessibleInterface, QStringLiteral("Description")).toString();
}

QStringList AssistiveClient::actions(const Node& node) const
{
    QStringList names;
    const QDBusMessage reply = call(node, actionInterface, QStringLiteral("GetActions"));
    if (reply.type() != QDBusMessage::ReplyMessage)
        return names;
    const auto list = reply.arguments().value(0).value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString name;
        QString description;
        QString keys;
        list.beginStructure();
        list >> name >> description >> keys;
        list.endStructure();
        names.append(name);
    }
    list.endArray();
    return names;
}

bool AssistiveClient::hasState(const Node& node, unsigned number) const
{
    const QDBusMessage reply = call(node, accessibleInterface, QStringLiteral("GetState"));
    if (reply.type() != QDBusMessage::ReplyMessage)
        return false;
    const auto words = qdbus_cast<QList<uint>>(reply.arguments().value(0).value<QDBusArgument>());
    return words.value(0) >> number & 1U;
}

bool AssistiveClient::isSelected(const Node& node) const
{
    return hasState(node, 23);
}

std::optional<int> AssistiveClient::selectedChildren(const Node& node) const
{
    const QVariant number = property(node, selectionInterface, QStringLiteral("NSelectedChildren"));
    return number.isValid() ? std::optional(number.toInt()) : std::nullopt;
}

bool AssistiveClient::selectChild(const Node& node, int index) const
{
    return call(node, selectionInterface, QStringLiteral("SelectChild"), { index }).arguments().value(0).toBool();
}

bool AssistiveClient::clearSelection(const Node& node) const
{
    return call(node, selectionInterface, QStringLiteral("ClearSelection")).arguments().value(0).toBool();
}

bool AssistiveClient::isMultiSelectable(const Node& node) const
{
    return hasState(node, 18);
}

bool AssistiveClient::listenForStates(QObject& listener, const char* slot)
{
    const Node registry{ QStringLiteral("org.a11y.atspi.Registry"),
                         QDBusObjectPath(QStringLiteral("/org/a11y/atspi/registry")) };
    const QDBusMessage reply = call(registry, QStringLiteral("org.a11y.atspi.Registry"),
                                    QStringLiteral("RegisterEvent"), { QStringLiteral("object:state-changed") });
    return reply.type() == QDBusMessage::ReplyMessage
        && m_bus.connect(QString(), QString(), QStringLiteral("org.a11y.atspi.Event.Object"),
                         QStringLiteral("StateChanged"), &listener, slot);
}

void AssistiveClient::doAction(const Node& node, int index) const
{
    (void)call(node, actionInterface, QStringLiteral("DoAction"), { index });
}

bool AssistiveClient::actOnListed(const QString& name, const QString& action) const
{
    for (const Node& program : programs()) {
        const auto list = find(program, QStringLiteral("list"));
        for (const Node& listed : list ? children(*list) : std::vector<Node>()) {
            if (this->name(listed) != name)
                continue;
            doAction(listed, static_cast<int>(actions(listed).indexOf(action)));
            return true;
        }
    }
    return false;
}

} // namespace nookle::e2e
