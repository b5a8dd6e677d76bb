#pragma once

#include "Failure.h"
#include "ServicePasteboard.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace nookle {

/// What other programs and the desktop itself ask of this one. Main thread only.
class ProgramRequests {
public:
    virtual ~ProgramRequests() = default;

    /// Begins to take requests; says in one log line why there are none to be had.
    virtual void start() = 0;

    /// A program hands something over; the failure is told to it. Set by the owner.
    std::function<std::optional<Failure>(const ServicePasteboard&)> onAdd = [](const auto&) { return std::nullopt; };

    /// The desktop opens files and pages with the program. Nobody waits for an answer. Set by the owner.
    std::function<void(const QStringList& uris)> onOpen = [](const QStringList&) {};

    /// The desktop starts the program once more. Set by the owner.
    std::function<void()> onActivate = [] {};

    /// What is selected in another program is to be added. Set by the owner.
    std::function<void()> onAddSelection = [] {};
};

} // namespace nookle
