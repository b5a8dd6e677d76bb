#pragma once

#include <QPixmap>
#include <QPointer>
#include <QWidget>

#include <functional>

namespace nookle {

/// The top-level widget that becomes the panel's window. The shelf view fills it. It is made before the shelf view,
/// because the panel's controller needs the window, and the shelf view needs the controller's state. While the window
/// is one pixel wide (off the screen), or the content out of sight, the shelf view is hidden and keeps its size.
class PanelContentView final : public QWidget {
    Q_OBJECT

public:
    PanelContentView();

    /// Fills the window with `content`, and takes ownership of it. Call it once.
    void setContent(QWidget* content);

    /// Draws the content `offset` points to the right of its place, without painting it anew at each step. The content
    /// itself stays where it is, so that a drag finds it there. With an offset greater than the width it is out of
    /// sight.
    void setContentOffset(double offset);

    /// Whether the content gets what is typed. A window that goes has the keyboard focus for a moment longer.
    void setTakesKeys(bool takesKeys) { m_takesKeys = takesKeys; }

    /// Called when the window has got the keyboard focus (true) or lost it. Set by the owner.
    std::function<void(bool hasFocus)> onFocusChanged = [](bool) {};

    /// The toolkit's window of this widget, created but not shown.
    [[nodiscard]] QWindow& panelWindow();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool isOutOfSight() const { return m_offset > width(); }
    void layOutContent();
    void beginSliding();
    void endSliding();

    QPointer<QWidget> m_content;
    bool m_takesKeys = true;
    double m_offset = 0;
    /// The content as it was when it began to slide; null while it is at rest.
    QPixmap m_picture;
};

} // namespace nookle
