#pragma once

#include "DesktopLook.h"

#include <QObject>
#include <QPalette>

#include <functional>

class QDBusMessage;
class QDBusPendingCallWatcher;

namespace nookle {

/// Gives the program the look that the desktop asks for, as far as the toolkit does not do so by itself: dark or light
/// colours, the accent colour, more contrast, the icon theme and the font. Takes it from the settings for all toolkits,
/// and from the portal's, which it asks asynchronously and starts no service for. Follows their changes.
class DesktopAppearance final : public QObject {
    Q_OBJECT

public:
    /// The application object must exist. Its present colours stay where they are as dark or light as the desktop asks
    /// for. `toolkit` may be null; else it must outlive this object.
    explicit DesktopAppearance(ToolkitSettings* toolkit = nullptr);

    [[nodiscard]] const DesktopLook& look() const { return m_look; }

    /// Called when the look has changed, and the application has it. Set by the owner.
    std::function<void()> onChanged;

private Q_SLOTS:
    void settingChanged(const QDBusMessage& message);

private:
    void followPortal();
    void askPortal();
    void readAnswer(QDBusPendingCallWatcher* watcher);
    void update();
    void apply(const DesktopLook& previous);

    ToolkitSettings* m_toolkit;
    QPalette m_own;
    PortalSettings m_portal;
    DesktopLook m_look;
};

} // namespace nookle
