#pragma once

class QPalette;
class QString;
class QWidget;

namespace nookle {

/// Sets the tool tip of a widget to `text`, cleaned by `shownText` and always shown as plain text. The toolkit alone
/// would interpret a text that looks like markup, and read the files that it names. An empty text means no tool tip.
void setPlainToolTip(QWidget& widget, const QString& text);

/// The colours of a tool tip in a program that has the colours `palette`.
[[nodiscard]] QPalette toolTipPalette(const QPalette& palette);

/// Draws tool tips in the colours that go with `palette`.
void useToolTipColors(const QPalette& palette);

} // namespace nookle
