#pragma once

#include <QObject>

namespace nookle {

class UserDefaults;

/// Whether the panel is pinned, that is, stays on screen. Stored under the settings key "panelPinned". Shared by the
/// panel controller, the shelf view and the status menu. Main thread only.
class PanelPinning final : public QObject {
    Q_OBJECT

public:
    explicit PanelPinning(UserDefaults& defaults);

    [[nodiscard]] bool isPinned() const { return m_isPinned; }

    /// Writes the setting and emits `isPinnedChanged`, even if nothing has changed.
    void setPinned(bool isPinned);

Q_SIGNALS:
    void isPinnedChanged();

private:
    UserDefaults& m_defaults;
    bool m_isPinned;
};

} // namespace nookle
