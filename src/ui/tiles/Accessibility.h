#pragma once

#include <QAccessible>

class QWidget;

namespace nookle {

/// Presents the shelf to assistive programs as a list of items with their actions. Call it once, before the first view
/// is made.
void installAccessibility();

/// Tells assistive programs that something has happened to a widget.
void tellAssistivePrograms(QWidget& widget, QAccessible::Event what);

} // namespace nookle
