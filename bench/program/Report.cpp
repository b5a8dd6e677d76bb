#include "Report.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>

namespace nookle::bench {

namespace {

inline constexpr int nameWidth = 58;
inline constexpr int columnWidth = 13;

[[nodiscard]] QString number(double value)
{
    constexpr double large = 100;
    return QString::number(value, 'f', value >= large ? 0 : 2);
}

[[nodiscard]] QString verdict(const Figure& figure)
{
    if (figure.judged() <= figure.budget)
        return QStringLiteral("pass");
    return figure.isMissed() ? QStringLiteral("MISSED") : QStringLiteral("over, by less than twice");
}

[[nodiscard]] QString line(const QString& name, const QStringList& columns, const QString& end)
{
    QString line = name.leftJustified(nameWidth);
    for (const QString& column : columns)
        line += column.rightJustified(columnWidth);
    return QString(line + QStringLiteral("  ") + end + u'\n');
}

} // namespace

void Report::addTime(const QString& name, double value, double budget)
{
    m_figures.push_back({ name, value, QStringLiteral("ms"), budget, Kind::time, std::nullopt });
}

void Report::addAmount(const QString& name, double value, const QString& unit, double budget)
{
    m_figures.push_back({ name, value, unit, budget, Kind::absolute, std::nullopt });
}

void Report::addRatio(const QString& name, double value, const QString& unit, double floor, double budget)
{
    m_figures.push_back({ name, value, unit, budget, Kind::absolute, floor });
}

void Report::addMemory(const QString& name, qint64 bytes, qint64 floor, double budget)
{
    constexpr double mebibyte = 1024 * 1024;
    addRatio(name, static_cast<double>(bytes) / mebibyte, QStringLiteral("MiB"), static_cast<double>(floor) / mebibyte,
             budget);
}

bool Report::isMissed() const
{
    return std::any_of(m_figures.begin(), m_figures.end(), [](const Figure& figure) { return figure.isMissed(); });
}

QString Report::table() const
{
    QString table = line(
        QStringLiteral("figure"),
        { QStringLiteral("value"), QStringLiteral("floor"), QStringLiteral("ratio"), QStringLiteral("budget") }, {});
    for (const Figure& figure : m_figures) {
        const QString floor = figure.floor ? number(*figure.floor) : QStringLiteral("-");
        const QString ratio = figure.floor ? number(figure.judged()) : QStringLiteral("-");
        table += line(figure.name,
                      { QString(number(figure.value) + u' ' + figure.unit), floor, ratio,
                        QString(number(figure.budget) + u' ' + (figure.floor ? QString() : figure.unit)).trimmed() },
                      verdict(figure));
    }
    return table;
}

QJsonArray Report::json() const
{
    QJsonArray lines;
    for (const Figure& figure : m_figures) {
        QJsonObject line{ { QStringLiteral("figure"), figure.name },
                          { QStringLiteral("value"), figure.value },
                          { QStringLiteral("unit"), figure.unit },
                          { QStringLiteral("budget"), figure.budget },
                          { QStringLiteral("pass"), figure.judged() <= figure.budget },
                          { QStringLiteral("missed"), figure.isMissed() } };
        if (figure.floor) {
            line.insert(QStringLiteral("floor"), *figure.floor);
            line.insert(QStringLiteral("ratio"), figure.judged());
        }
        lines.append(line);
    }
    return lines;
}

ExitCode publish(const Report& report, bool isMeasured, const QString& jsonFile)
{
    std::fputs(qPrintable(report.table()), stdout);
    QFile file(jsonFile);
    const QByteArray json = QJsonDocument(report.json()).toJson();
    if (!isMeasured || !file.open(QIODevice::WriteOnly) || file.write(json) != json.size())
        return cannotMeasure;
    return report.isMissed() ? missed : passed;
}

} // namespace nookle::bench
