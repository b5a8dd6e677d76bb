#include "Fonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>

#include <algorithm>

namespace nookle {

namespace {

inline constexpr double smallerCaptionScale = 0.9;

} // namespace

// Many desktops name no font for small print; the size that the toolkit assumes then is worth more than its family.
QFont captionFont()
{
    QFont font = QGuiApplication::font();
    const double smallest = QFontInfo(QFontDatabase::systemFont(QFontDatabase::SmallestReadableFont)).pointSizeF();
    font.setPointSizeF(std::min(QFontInfo(font).pointSizeF(), smallest));
    return font;
}

QFont smallerCaptionFont()
{
    QFont font = captionFont();
    font.setPointSizeF(font.pointSizeF() * smallerCaptionScale);
    return font;
}

} // namespace nookle
