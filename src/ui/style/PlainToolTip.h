#pragma once

class QString;
class QWidget;

namespace nookle {

/// Sets the tool tip of a widget, as `shownText` makes it. The toolkit takes a text that looks like markup for markup,
/// and reads the files that it names; here every text is shown as it is. No text means no tool tip.
void setPlainToolTip(QWidget& widget, const QString& text);

} // namespace nookle
