#pragma once

#include <QProxyStyle>

namespace nookle {

/// The toolkit's own style with edges that can be seen in dark colours too. It draws them darker than their ground, so
/// that dark menus and check boxes have none. Tool tips get a fine edge, and they and buttons some room around their
/// text. Texts that are not available are drawn once, and not a second time in a lighter colour below.
class OutlinedStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// Has the application use this style, unless the user or the desktop has chosen another one than the toolkit's
    /// own.
    static void useInstead();

    OutlinedStyle();

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr, const QWidget* widget = nullptr,
                  QStyleHintReturn* returned = nullptr) const override;
};

} // namespace nookle
