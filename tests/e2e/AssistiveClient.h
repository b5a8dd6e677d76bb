#pragma once

#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

namespace nookle::e2e {

/// What an assistive program, such as a screen reader, sees of the others: a tree of things with roles and names. It
/// asks over the bus that all of them share.
class AssistiveClient {
public:
    /// One thing in the tree.
    struct Node {
        QString service;
        QDBusObjectPath path;
    };

    /// Switches accessibility on, on the desktop of that session bus. Null when it has none.
    [[nodiscard]] static std::unique_ptr<AssistiveClient> tryCreate(const QString& sessionBusAddress);
    ~AssistiveClient();
    AssistiveClient(const AssistiveClient&) = delete;
    AssistiveClient& operator=(const AssistiveClient&) = delete;

    /// The programs that take part.
    [[nodiscard]] std::vector<Node> programs() const;
    [[nodiscard]] std::vector<Node> children(const Node& node) const;
    /// The first thing with that role at or below `node`.
    [[nodiscard]] std::optional<Node> find(const Node& node, const QString& role) const;

    [[nodiscard]] QString role(const Node& node) const;
    [[nodiscard]] QString name(const Node& node) const;
    [[nodiscard]] QString description(const Node& node) const;
    [[nodiscard]] QStringList actions(const Node& node) const;
    void doAction(const Node& node, int index) const;
    /// Does that action of what has that name in a list of any program; false if there is no such thing.
    [[nodiscard]] bool actOnListed(const QString& name, const QString& action) const;
    [[nodiscard]] bool isSelected(const Node& node) const;
    /// The number of selected children; none if the thing does not say.
    [[nodiscard]] std::optional<int> selectedChildren(const Node& node) const;
    [[nodiscard]] bool selectChild(const Node& node, int index) const;
    [[nodiscard]] bool clearSelection(const Node& node) const;
    [[nodiscard]] bool isMultiSelectable(const Node& node) const;

    /// From now on a slot of `listener`, with a `QDBusMessage`, gets the signals about changed states.
    [[nodiscard]] bool listenForStates(QObject& listener, const char* slot);

private:
    explicit AssistiveClient(const QDBusConnection& bus);

    [[nodiscard]] QDBusMessage call(const Node& node, const QString& interface, const QString& method,
                                    const QVariantList& arguments = {}) const;
    [[nodiscard]] bool hasState(const Node& node, unsigned number) const;
    [[nodiscard]] QVariant property(const Node& node, const QString& interface, const QString& name) const;

    QDBusConnection m_bus;
};

} // namespace nookle::e2e
