#include "ToolTipPlace.h"

#include <QApplication>
#include <QEvent>
#include <QScreen>
#include <QToolTip>
#include <QWidget>

#include <algorithm>

namespace nookle {

namespace {

/// Of a tool tip: the widget that it is about. Only compared, because that may be gone.
constexpr const char* describedProperty = "described";

[[nodiscard]] QPoint placeFor(const QWidget& widget, const QSize& size)
{
    const QRect described(widget.mapToGlobal(QPoint()), widget.size());
    return toolTipPlace(size, described, widget.window()->geometry(), widget.screen()->geometry().width());
}

/// The toolkit places a tool tip below the pointer, whatever is there. It can be moved once it has its size, and on
/// Wayland only before it shows.
class Placing final : public QObject {
public:
    explicit Placing(QWidget& described)
        : m_described(described)
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Show && watched->isWidgetType()) {
            auto& window = static_cast<QWidget&>(*watched);
            if (window.windowType() == Qt::ToolTip) {
                window.setProperty(describedProperty, QVariant::fromValue(&m_described));
                window.move(placeFor(m_described, window.size()));
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QWidget& m_described;
};

/// Hides a tool tip about something else: the toolkit would only change its text.
void hideOther(QWidget& described)
{
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->windowType() != Qt::ToolTip || !window->isVisible())
            continue;
        const bool isAboutThis = window->property(describedProperty).value<QWidget*>() == &described;
        if (!isAboutThis || QToolTip::text() != described.toolTip())
            window->hide();
    }
}

} // namespace

QPoint toolTipPlace(const QSize& size, const QRect& described, const QRect& panel, int displayWidth)
{
    const int lowest = std::max(panel.top(), panel.bottom() + 1 - size.height());
    if (size.width() <= displayWidth - panel.width()) {
        const int level = described.center().y() - size.height() / 2;
        return { panel.left() - size.width(), std::clamp(level, panel.top(), lowest) };
    }
    const int right = panel.right() + 1;
    const int below = described.bottom() + 1;
    return { right - std::min(size.width(), displayWidth), below <= lowest ? below : described.top() - size.height() };
}

bool showToolTip(QWidget& widget)
{
    if (widget.toolTip().isEmpty())
        return false;
    hideOther(widget);
    const Placing placing(widget);
    QToolTip::showText(widget.mapToGlobal(widget.rect().center()), widget.toolTip(), &widget);
    return true;
}

} // namespace nookle
