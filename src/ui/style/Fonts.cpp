#include "Fonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>

#include <algorithm>

namespace nookle {

namespace {

inline constexpr double smallerCaptionScale = 0.9;

} // namespace

// Many desktops define no font for small print. Then the toolkit's fallback has a useful size but a wrong family, so
// only its size is used.
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
