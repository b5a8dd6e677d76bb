#pragma once

#include <QWidget>

namespace nookle {

/// What an empty shelf shows: a tray and the words "Drop here".
class EmptyShelfView final : public QWidget {
    Q_OBJECT

public:
    explicit EmptyShelfView(QWidget* parent = nullptr);

    /// Shows a sentence below the words, until the view is hidden.
    void showHint(const QString& hint);

protected:
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_hint;
};

} // namespace nookle
