#pragma once

#include <QPointer>
#include <QWidget>

namespace nookle {

/// The top-level widget that becomes the panel's window. The shelf view fills it. It is made before the shelf view,
/// because the panel's controller needs the window, and the shelf view needs the controller's state. While the window
/// is one pixel wide (off the screen), the shelf view is hidden and keeps its size.
class PanelContentView final : public QWidget {
    Q_OBJECT

public:
    PanelContentView();

    /// Fills the window with `content`, and takes ownership of it. Call it once.
    void setContent(QWidget* content);

    /// The toolkit's window of this widget, created but not shown.
    [[nodiscard]] QWindow& panelWindow();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QPointer<QWidget> m_content;
};

} // namespace nookle
