#pragma once

#include "ProgramRequests.h"

#include <QObject>

namespace nookle {

/// The program on the session bus, as its desktop file promises: other programs, file managers and the desktop itself
/// hand over what is to be put on the shelf. Without a bus there is none of it. Main thread only.
class BusService final : public QObject, public ProgramRequests {
    Q_OBJECT

public:
    BusService();
    ~BusService() override;

    /// Takes the program's name on the bus.
    void start() override;
};

} // namespace nookle
