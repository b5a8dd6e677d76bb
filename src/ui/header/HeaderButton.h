#pragma once

#include "Symbol.h"

#include <QAbstractButton>
#include <QColor>

namespace nookle {

/// A button in the shelf's header: a symbol that is highlighted under the pointer, and framed while it has the keyboard
/// focus.
class HeaderButton : public QAbstractButton {
    Q_OBJECT

public:
    explicit HeaderButton(QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    /// The symbol for the present state, and its colour.
    [[nodiscard]] virtual Symbol symbol() const = 0;
    [[nodiscard]] virtual QColor symbolColor() const;

    /// Names the button for everybody: by its tool tip and for assistive programs.
    void setName(const QString& name);

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace nookle
