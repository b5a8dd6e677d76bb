#pragma once

#include <QString>

#include <functional>

namespace nookle {

/// Asks the user something that a word of agreement answers. Returns at once; calls `proceed` when the user agrees.
using Ask = std::function<void(const QString& question, const QString& agreement, std::function<void()> proceed)>;

/// Asks in a window.
void askInWindow(const QString& question, const QString& agreement, const std::function<void()>& proceed);

} // namespace nookle
