#include "DescriptionLabel.h"

#include "Colors.h"
#include "PlainText.h"

#include <QCheckBox>
#include <QEvent>
#include <QGuiApplication>
#include <QStyle>

namespace nookle {

namespace {

[[nodiscard]] int textIndent(const QWidget& control)
{
    if (!qobject_cast<const QCheckBox*>(&control))
        return 0;
    return control.style()->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, &control)
        + control.style()->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, &control);
}

/// Allows line breaks after slashes, because the toolkit breaks lines only at spaces and a path may have none.
[[nodiscard]] QString breakable(QString text)
{
    const QString zeroWidthSpace(QChar(0x200b));
    return text.replace(QLatin1Char('/'), QString(QLatin1Char('/') + zeroWidthSpace));
}

} // namespace

DescriptionLabel::DescriptionLabel(QWidget& control)
    : m_control(control)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setForegroundRole(QPalette::PlaceholderText);
    useReadableColor();
    const int indent = textIndent(control);
    setContentsMargins(isRightToLeft() ? QMargins(0, 0, indent, 0) : QMargins(indent, 0, 0, 0));
}

void DescriptionLabel::setDescription(const QString& text)
{
    setText(breakable(text));
    m_control.setAccessibleDescription(text);
}

void DescriptionLabel::changeEvent(QEvent* event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        useReadableColor();
}

// Themes make hints so faint that a sentence is hard to read.
void DescriptionLabel::useReadableColor()
{
    const QColor color = explanationColor(QGuiApplication::palette());
    if (color == m_color)
        return;
    m_color = color;
    // Nothing but this colour: the others go on following the desktop's.
    QPalette own;
    own.setColor(QPalette::PlaceholderText, color);
    setPalette(own);
}

QString DescriptionLabel::shownPath(const QString& path)
{
    constexpr QChar leftToRightIsolate(0x2066);
    constexpr QChar endOfIsolate(0x2069);
    const QString shown = shownText(path);
    return QGuiApplication::isRightToLeft() ? QString(leftToRightIsolate + shown + endOfIsolate) : shown;
}

} // namespace nookle
