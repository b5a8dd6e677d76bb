#pragma once

#include <QJsonArray>
#include <QString>

#include <optional>
#include <vector>

namespace nookle::bench {

enum class Kind {
    /// Holds on every machine: a ratio, a count, a size.
    absolute,
    /// Depends on the machine and on what else runs there, and is missed only when it is more than twice the budget.
    time,
};

/// One line of the report.
struct Figure {
    QString name;
    double value = 0;
    QString unit;
    double budget = 0;
    Kind kind = Kind::absolute;
    /// What the bare program takes, where the budget is a ratio to it.
    std::optional<double> floor;

    /// What is compared with the budget.
    [[nodiscard]] double judged() const { return floor ? value / *floor : value; }
    [[nodiscard]] bool isMissed() const { return judged() > (kind == Kind::time ? 2 * budget : budget); }
};

/// The figures of one run.
class Report {
public:
    /// In milliseconds.
    void addTime(const QString& name, double value, double budget);
    /// A count or a size.
    void addAmount(const QString& name, double value, const QString& unit, double budget);
    /// The budget is that of the ratio to the floor.
    void addRatio(const QString& name, double value, const QString& unit, double floor, double budget);
    /// The same of two sizes in bytes.
    void addMemory(const QString& name, qint64 bytes, qint64 floor, double budget);

    [[nodiscard]] bool isMissed() const;
    [[nodiscard]] QString table() const;
    [[nodiscard]] QJsonArray json() const;

private:
    std::vector<Figure> m_figures;
};

/// How a driver ends.
enum ExitCode { passed = 0, missed = 1, cannotMeasure = 2 };

/// Ends a driver: prints the report, writes it to a file, and returns the exit code. `isMeasured` is false when a
/// figure is missing.
[[nodiscard]] ExitCode publish(const Report& report, bool isMeasured, const QString& jsonFile);

} // namespace nookle::bench
