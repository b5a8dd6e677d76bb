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
/// and from the portal's, which it asks asynchronously and starts no service for. Follows their changes, and those of
/// the toolkit's own colours, which on some desktops change with the colour scheme.
class DesktopAppearance final : public QObject {
    Q_OBJECT

public:
    /// Returns the colours that the toolkit has by itself.
    using ReadPalette = std::function<QPalette()>;

    /// The application object must exist. The toolkit's own colours stay where they are as dark or light as the desktop
    /// asks for: at first the application's present ones, then those that `readPalette` returns whenever the toolkit
    /// has told of a change. `toolkit` may be null; else it must outlive this object.
    explicit DesktopAppearance(ToolkitSettings* toolkit = nullptr, ReadPalette readPalette = toolkitPalette);

    [[nodiscard]] const DesktopLook& look() const { return m_look; }

    /// Called when the look has changed, and the application has it. Set by the owner.
    std::function<void()> onChanged;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private Q_SLOTS:
    void settingChanged(const QDBusMessage& message);

private:
    void followPortal();
    void askPortal();
    void readAnswer(QDBusPendingCallWatcher* watcher);
    void update();
    void apply(const DesktopLook& previous);
    void applyPalette();
    void readOwnPalette();
    /// Takes the application's colours away, if it has any, to see the toolkit's.
    [[nodiscard]] static QPalette toolkitPalette();

    ToolkitSettings* m_toolkit;
    ReadPalette m_readPalette;
    QPalette m_own;
    bool m_isOwnOutdated = false;
    PortalSettings m_portal;
    DesktopLook m_look;
};

} // namespace nookle
