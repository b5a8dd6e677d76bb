#pragma once

#include "Failure.h"
#include "ServicePasteboard.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace nookle {

/// The program on the session bus, as its desktop file promises: other programs, file managers and the desktop itself
/// hand over what is to be put on the shelf. Without a bus there is none of it. Main thread only.
class BusService final : public QObject {
    Q_OBJECT

public:
    BusService();
    ~BusService() override;

    /// Takes the program's name on the bus; says in one log line why it is not to be had.
    void start();

    /// A program hands something over; the failure is told to it. Set by the owner.
    std::function<std::optional<Failure>(const ServicePasteboard&)> onAdd;

    /// The desktop opens files and pages with the program. Nobody waits for an answer. Set by the owner.
    std::function<void(const QStringList& uris)> onOpen;

    /// The desktop starts the program once more. Set by the owner.
    std::function<void()> onActivate;

    /// What is selected in another program is to be added. Set by the owner.
    std::function<void()> onAddSelection;
};

} // namespace nookle
