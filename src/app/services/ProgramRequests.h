#pragma once

#include "Failure.h"
#include "ServicePasteboard.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace nookle {

/// Requests of other programs and of the desktop to this program. Main thread only.
class ProgramRequests {
public:
    virtual ~ProgramRequests() = default;

    /// Begins to accept requests. If that is impossible, writes the reason in one log line.
    virtual void start() = 0;

    /// Called when a program hands something over. A returned failure is sent to that program. Set by the owner.
    std::function<std::optional<Failure>(const ServicePasteboard&)> onAdd = [](const auto&) { return std::nullopt; };

    /// Called when the desktop opens files and pages with this program. There is no answer. Set by the owner.
    std::function<void(const QStringList& uris)> onOpen = [](const QStringList&) {};

    /// Called when the desktop starts the program once more. Set by the owner.
    std::function<void()> onActivate = [] {};

    /// Called to show the shelf, or to hide it if it is shown. Set by the owner.
    std::function<void()> onToggle = [] {};

    /// Called to show the shelf with the keyboard focus. Set by the owner.
    std::function<void()> onFocus = [] {};

    /// Called to add the present selection of another program. Set by the owner.
    std::function<void()> onAddSelection = [] {};
};

} // namespace nookle
