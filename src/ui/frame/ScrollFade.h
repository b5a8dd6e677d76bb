#pragma once

#include <QWidget>

class QAbstractScrollArea;

namespace nookle {

class Compositing;

/// Lets the tiles fade out at the upper or lower edge of the list where more of it is hidden. It lies above the list,
/// which gets all events.
class ScrollFade final : public QWidget {
    Q_OBJECT

public:
    enum class Edge { top, bottom };

    /// `panel` is the parent of both this and `list`, and has the panel's shape. All arguments must outlive the fade.
    ScrollFade(QWidget& panel, const QAbstractScrollArea& list, Edge edge, const Compositing& compositing);

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// Covers its edge of the list, or hides when nothing is hidden there.
    void follow();
    [[nodiscard]] int hiddenHeight() const;

    const QAbstractScrollArea& m_list;
    Edge m_edge;
    const Compositing& m_compositing;
};

} // namespace nookle
