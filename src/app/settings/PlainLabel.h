#pragma once

#include <QLabel>

namespace nookle {

/// A label that shows its text as it is, and takes nothing in it for markup.
[[nodiscard]] inline QLabel* makePlainLabel(const QString& text)
{
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    return label;
}

} // namespace nookle
