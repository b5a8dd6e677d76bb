#pragma once

#include <QObject>
#include <QPointer>
#include <QWindow>

#include <functional>

namespace nookle {

/// Places the menus and tool tips of the panel: they open to the left, because the panel is at the right edge of the
/// screen. Without this the compositor cuts them off there. Main thread only.
class PopupPlacement final : public QObject {
    Q_OBJECT

public:
    /// `panel` must outlive this object.
    explicit PopupPlacement(QWindow& panel);

    /// Whether a menu of the panel is open.
    [[nodiscard]] bool isMenuOpen() const { return m_menu && m_menu->isVisible(); }

    /// Whether the toolkit is just showing a menu of the panel.
    [[nodiscard]] bool isMenuOpening() const { return m_isMenuOpening; }

    /// Called when a menu of the panel has closed. Set by the owner.
    std::function<void()> onMenuClosed;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place(QWindow& popup);
    void menuOpens(QWindow& menu);

    QWindow& m_panel;
    QPointer<QWindow> m_menu;
    bool m_isMenuOpening = false;
};

} // namespace nookle
