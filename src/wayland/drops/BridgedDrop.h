#pragma once

#include "ReadingChild.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace nookle {

/// The data of a drop that an X11 program has made, and the compositor passes on. KWin tells of the drop before the
/// program has heard of it, and a question that comes to the program too early is never answered. Once all questions
/// that it knows of have their answers, KWin ends the drag. So all are asked in one message, a moment after the drop,
/// and what is not answered is asked again. Blocks. Main thread only.
class BridgedDrop final {
public:
    using Clock = ReadingChild::Clock;
    /// Has a format read, and sends one request for it to the compositor.
    using MakeWork = std::function<ReadingChild::Work(const QString& format)>;

    struct Limits {
        Clock::time_point deadline;
        /// For one answer, in bytes.
        qsizetype size;
    };

    /// Made in the moment of the drop. `socket` leads to the compositor, and nothing waits to be sent there.
    BridgedDrop(MakeWork makeWork, int socket, const Limits& limits);

    /// Asks for the formats.
    void ask(const QStringList& formats);

    /// The answer to that question, which is asked if it has not been yet; empty if none comes before the deadline.
    [[nodiscard]] QByteArray answer(const QString& format);

private:
    using Children = std::vector<ReadingChild>;

    /// What the first of the children that has read everything brings; none if none does until then.
    [[nodiscard]] static std::optional<QByteArray> firstAnswer(Children& children, Clock::time_point until);

    MakeWork m_makeWork;
    int m_socket;
    Limits m_limits;
    Clock::time_point m_earliest;
    /// Those that read each format.
    std::map<QString, Children> m_questions;
};

} // namespace nookle
