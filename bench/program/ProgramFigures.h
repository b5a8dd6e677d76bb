#pragma once

#include <QString>

namespace nookle::bench {

class Report;

/// Where the programs are that are measured, and for how long they are watched.
struct Programs {
    QString nookle;
    QString floor;
    QString panel;
    QString peer;
    int idleSeconds = 60;
};

// Each runs the program on a private desktop and adds its figures; false, with a warning, when it does not run.

[[nodiscard]] bool addStart(const Programs& programs, Report& report);
[[nodiscard]] bool addIdling(const Programs& programs, Report& report);
[[nodiscard]] bool addDragging(const Programs& programs, Report& report);
[[nodiscard]] bool addDrop(const Programs& programs, Report& report);
[[nodiscard]] bool addPanel(const Programs& programs, Report& report);
[[nodiscard]] bool addSize(const Programs& programs, Report& report);

} // namespace nookle::bench
