#pragma once

#include "WaylandShelfDesktop.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <optional>

namespace nookle::bench {

class Report;

/// Runs the program under sway and adds its figures.
class SwayFigures : private e2e::WaylandShelfDesktop {
public:
    /// `floor` is the program with one empty window that Nookle is compared with.
    SwayFigures(Report& report, QString floor);
    ~SwayFigures();

    // Each is false, with a warning, when something does not run.

    [[nodiscard]] bool addStart();
    [[nodiscard]] bool addIdling();
    [[nodiscard]] bool addPictures();

private:
    [[nodiscard]] bool setUp();
    [[nodiscard]] bool showOnce();
    void moveFor(std::chrono::seconds time);
    /// From the start of a program until its log shows something, in milliseconds.
    [[nodiscard]] std::optional<double> timeTo(const QString& path, bool (*hasHappened)(const QByteArray& log));

    Report& m_report;
    QString m_floor;
};

} // namespace nookle::bench
