#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QImage>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace nookle::e2e {

/// A tray that draws icons and menus itself, as the panels of several desktops are, on a bus of a test's own.
class TrayServer final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(bool IsStatusNotifierHostRegistered READ isHostRegistered)
    Q_PROPERTY(int ProtocolVersion READ protocolVersion)
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)

public:
    /// An entry of a program's menu.
    struct Entry {
        int id = 0;
        QString label;
        bool isSeparator = false;
        bool showsKeys = false;
        /// None for an entry without a mark.
        std::optional<bool> isChecked;
    };

    /// Null when the bus does not take it.
    [[nodiscard]] static std::unique_ptr<TrayServer> tryStart(const QString& busAddress);
    ~TrayServer() override;

    [[nodiscard]] static bool isHostRegistered() { return true; }
    [[nodiscard]] static int protocolVersion() { return 0; }

    /// The programs that show an icon.
    [[nodiscard]] QStringList items() const { return m_items; }

    /// The pictures of the first program's icon.
    [[nodiscard]] QList<QImage> icons() const;
    /// A text property of it, for example "Id".
    [[nodiscard]] QString text(const QString& property) const;

    /// The first program's menu, from the top.
    [[nodiscard]] QList<Entry> menu() const;
    /// Chooses the entry with that label.
    void choose(const QString& label) const;
    /// A click on the icon itself.
    void activate() const;

public Q_SLOTS:
    void RegisterStatusNotifierItem(const QString& service, const QDBusMessage& message);
    void RegisterStatusNotifierHost(const QString& service);

Q_SIGNALS:
    void StatusNotifierItemRegistered(const QString& item);
    void StatusNotifierItemUnregistered(const QString& item);
    void StatusNotifierHostRegistered();

private:
    explicit TrayServer(const QDBusConnection& bus);

    /// The reply, for which other calls are answered meanwhile.
    [[nodiscard]] QDBusMessage call(const QString& path, const QString& interface, const QString& method,
                                    const QVariantList& arguments) const;
    [[nodiscard]] QVariant property(const QString& name) const;

    QDBusConnection m_bus;
    QStringList m_items;
};

} // namespace nookle::e2e
