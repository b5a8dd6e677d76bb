#pragma once

#include <QPointer>
#include <QWidget>

namespace nookle {

/// The top-level widget that becomes the panel's window; the shelf view fills it. Made before the shelf view, because
/// the panel's controller, whose state the shelf view shows, needs the window first. A window of a single pixel is one
/// that nobody sees: the shelf view is hidden then, and keeps its size.
class PanelContentView final : public QWidget {
    Q_OBJECT

public:
    PanelContentView();

    /// Fills the window with `content`, and takes it over. Call it once.
    void setContent(QWidget* content);

    /// The window of the toolkit, created and not shown.
    [[nodiscard]] QWindow& panelWindow();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    QPointer<QWidget> m_content;
};

} // namespace nookle
