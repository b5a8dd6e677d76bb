#pragma once

#include <QObject>

namespace nookle {

class UserDefaults;

/// Whether the panel stays on screen, kept under the settings key "panelPinned". Shared by the panel controller, the
/// shelf view and the status menu. Main thread only.
class PanelPinning final : public QObject {
    Q_OBJECT

public:
    explicit PanelPinning(UserDefaults& defaults);

    [[nodiscard]] bool isPinned() const { return m_isPinned; }

    /// Writes the settings and tells observers, at every call.
    void setPinned(bool isPinned);

Q_SIGNALS:
    void isPinnedChanged();

private:
    UserDefaults& m_defaults;
    bool m_isPinned;
};

} // namespace nookle
