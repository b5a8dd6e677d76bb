#include "DesktopPalette.h"

#include "DesktopLook.h"

namespace nookle {

namespace {

const QColor usualLight(0xef, 0xef, 0xef);

void setText(QPalette& palette, const QColor& text, const QColor& faint)
{
    for (const auto role :
         { QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText, QPalette::BrightText })
        palette.setColor(role, text);
    for (const auto role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText })
        palette.setColor(QPalette::Disabled, role, faint);
    palette.setColor(QPalette::PlaceholderText, faint);
}

[[nodiscard]] bool isDarkPalette(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

[[nodiscard]] QPalette darkPalette(const QPalette& own, bool hasHighContrast)
{
    if (isDarkPalette(own) && !hasHighContrast)
        return own;
    const QColor window = hasHighContrast ? QColor(Qt::black) : QColor(0x2b, 0x2b, 0x2e);
    const QColor button = hasHighContrast ? QColor(0x1c, 0x1c, 0x1e) : QColor(0x3a, 0x3a, 0x3d);
    QPalette palette(window.lighter(), window);
    setText(palette, hasHighContrast ? QColor(Qt::white) : QColor(0xf2, 0xf2, 0xf4), QColor(0x8c, 0x8c, 0x90));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Base, hasHighContrast ? QColor(Qt::black) : QColor(0x1c, 0x1c, 0x1e));
    palette.setColor(QPalette::ToolTipBase, button);
    palette.setColor(QPalette::Button, button);
    return palette;
}

[[nodiscard]] QPalette lightPalette(const QPalette& own, bool hasHighContrast)
{
    QPalette palette = isDarkPalette(own) ? QPalette(usualLight) : own;
    palette.setColor(QPalette::ToolTipBase, palette.color(QPalette::Base));
    palette.setColor(QPalette::ToolTipText, palette.color(QPalette::WindowText));
    if (!hasHighContrast)
        return palette;
    palette.setColor(QPalette::Window, Qt::white);
    setText(palette, Qt::black, QColor(0x60, 0x60, 0x60));
    return palette;
}

/// White or black, whichever is easier to read on `background`.
[[nodiscard]] QColor textOn(const QColor& background)
{
    constexpr int middle = 150;
    return qGray(background.rgb()) > middle ? QColor(Qt::black) : QColor(Qt::white);
}

/// The panel is in use while another window is active. Some themes make the texts of all others faint.
void makeInactiveLikeActive(QPalette& palette)
{
    for (int number = 0; number < QPalette::NColorRoles; ++number) {
        const auto role = static_cast<QPalette::ColorRole>(number);
        palette.setColor(QPalette::Inactive, role, palette.color(QPalette::Active, role));
    }
}

} // namespace

QPalette desktopPalette(const QPalette& own, const DesktopLook& look)
{
    const bool isDark = look.isDark.value_or(isDarkPalette(own));
    QPalette palette = isDark ? darkPalette(own, look.hasHighContrast) : lightPalette(own, look.hasHighContrast);
    palette.setColor(QPalette::Highlight, look.accent.value_or(own.color(QPalette::Highlight)));
    if (look.accent)
        palette.setColor(QPalette::HighlightedText, textOn(*look.accent));
    makeInactiveLikeActive(palette);
    return palette;
}

} // namespace nookle
