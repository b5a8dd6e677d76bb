#pragma once

#include "KdeKeys.h"
#include "ShortcutService.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class QDBusPendingCallWatcher;

namespace nookle {

/// Shortcuts from KDE's service for them, which keeps the keys that the user has chosen in its settings. Uses the
/// service only where it runs: elsewhere it might start, and bind nothing.
class KdeShortcuts final : public ShortcutService {
    Q_OBJECT

public:
    /// `program` is the path of this program. When it is gone, the shortcuts are forgotten instead of released.
    KdeShortcuts(const QDBusConnection& bus, const QString& program);
    ~KdeShortcuts() override;

    void bind(const QList<Shortcut>& shortcuts) override;
    void release() override;

private Q_SLOTS:
    void pressed(const QDBusMessage& signal);
    void keysChanged(const QDBusMessage& signal);

private:
    using State = ShortcutStatus::State;
    using Reply = std::function<void(const QDBusMessage& reply)>;

    void ownerChanged(const QString& now);
    void start();
    void registerShortcut(const Shortcut& shortcut, const KdeKeysList& defaultsBefore);
    void takeKeys(const KdeKeysList& keys);
    void call(const QString& method, const QVariantList& arguments, Reply reply);
    void send(const QString& method, const QVariantList& arguments);

    QDBusConnection m_bus;
    QString m_program;
    QList<Shortcut> m_shortcuts;
    /// Counts the calls of `bind` and `release`. Replies to what was sent before the last one are ignored.
    int m_round = 0;
};

} // namespace nookle
