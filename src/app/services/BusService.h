#pragma once

#include "ProgramRequests.h"

#include <QObject>

namespace nookle {

/// The program's service on the session bus, which its desktop file declares. Other programs, file managers and the
/// desktop use it to add to the shelf. Without a bus, they cannot. Main thread only.
class BusService final : public QObject, public ProgramRequests {
    Q_OBJECT

public:
    BusService();
    ~BusService() override;

    /// Registers the service and the program's name on the bus.
    void start() override;
};

} // namespace nookle
