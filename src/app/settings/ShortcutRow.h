#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace nookle {

class DescriptionLabel;
class GlobalShortcuts;

/// The row of the settings about the keyboard shortcut: the keys that are bound, else those that are wanted, marked as
/// such, and why they are not bound; and a button that asks the desktop again where that can help. Follows every
/// change. Main thread only.
class ShortcutRow final : public QWidget {
    Q_OBJECT

public:
    /// `shortcuts` must outlive this object.
    explicit ShortcutRow(GlobalShortcuts& shortcuts);

private:
    void showState();
    void showKeys();

    GlobalShortcuts& m_shortcuts;
    QLabel* m_keys;
    DescriptionLabel* m_obstacle;
    QPushButton* m_ask;
};

} // namespace nookle
