#pragma once

#include <QLabel>

namespace nookle {

/// A sentence below a control that says more about it, in the secondary colour. Main thread only.
class DescriptionLabel final : public QLabel {
    Q_OBJECT

public:
    /// Describes `control` to assistive programs as well. Under a check box the text stands in line with the box's.
    explicit DescriptionLabel(QWidget& control);

    /// Shown as it is, whatever characters it has; a word that is too long for the line is broken.
    void setDescription(const QString& text);

private:
    QWidget& m_control;
};

} // namespace nookle
