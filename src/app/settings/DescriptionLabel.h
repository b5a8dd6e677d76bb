#pragma once

#include <QColor>
#include <QLabel>

namespace nookle {

/// A sentence below a control that explains it, in the colour of explanations. Main thread only.
class DescriptionLabel final : public QLabel {
    Q_OBJECT

public:
    /// The text is also the description of `control` for assistive programs. Under a check box, the text is aligned
    /// with the box's text.
    explicit DescriptionLabel(QWidget& control);

    /// Shows `text` as plain text. A path that is too long for the line is broken at its slashes.
    void setDescription(const QString& text);

    /// A path as a part of a description: as it is shown, and in its order within a text that is written from right to
    /// left.
    [[nodiscard]] static QString shownPath(const QString& path);

protected:
    void changeEvent(QEvent* event) override;

private:
    void useReadableColor();

    QWidget& m_control;
    QColor m_color;
};

} // namespace nookle
