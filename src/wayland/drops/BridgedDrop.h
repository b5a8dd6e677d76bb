#pragma once

#include "HeldRequest.h"
#include "ReadingChild.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstddef>
#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace nookle {

/// The data of a drop that an X11 program has made, and the compositor passes on. KWin tells of the drop before the
/// program has heard of it, and a question that comes to the program too early is never answered. Once all questions
/// that it knows of have their answers, KWin ends the drag. So all are asked in one message, a moment after the drop,
/// and what is not answered is asked again. What the program refuses is never answered, nor ended. Blocks. Main thread
/// only.
class BridgedDrop final {
public:
    using Clock = ReadingChild::Clock;
    /// Has a format read, and sends one request for it to the compositor.
    /// None when nothing can be sent now.
    using MakeWork = std::function<std::optional<ReadingChild::Work>(const QString& format)>;

    struct Limits {
        Clock::time_point deadline;
        /// For one answer, in bytes.
        qsizetype size;
    };

    /// Made in the moment of the drop. `socket` leads to the compositor, and nothing waits to be sent there.
    BridgedDrop(MakeWork makeWork, int socket, const Limits& limits);

    /// Asks for the formats; false if none of them can be asked for before the deadline.
    bool ask(const QStringList& formats);

    /// The answer to that question, which is asked if it has not been yet; empty if none comes before the deadline, or
    /// for a while after the others.
    [[nodiscard]] QByteArray answer(const QString& format);

private:
    struct Question {
        std::vector<ReadingChild> children;
        /// A complete answer that is not empty.
        std::optional<QByteArray> answer;
        /// Whether one of the children has ended without such an answer.
        bool hasEnded = false;
        Clock::time_point asked;
    };
    /// A child whose request has not been sent yet.
    struct Asking {
        QString format;
        ReadingChild child;
        HeldRequest request;
        bool hasAsked = false;
    };

    [[nodiscard]] std::vector<Asking> start(const QStringList& formats) const;
    /// Returns once each of them has asked, or has ended, or may take no longer.
    void collect(std::vector<Asking>& asking);
    /// False if nothing was sent.
    [[nodiscard]] bool send(std::vector<Asking> asking);
    /// Takes what comes for all questions until this one has its answer, or no child left.
    void takeFor(Question& question, Clock::time_point until);
    /// Takes from one child what there is; false when nothing comes until then.
    [[nodiscard]] bool takeSome(Clock::time_point until);
    [[nodiscard]] Clock::time_point patienceEnd(const Question& question) const;

    MakeWork m_makeWork;
    int m_socket;
    Limits m_limits;
    Clock::time_point m_earliest;
    /// By format.
    std::map<QString, Question> m_questions;
    /// When something came for any question.
    std::optional<Clock::time_point> m_lastBytes;
    /// Which child is the first to be taken from: one that never ends must not keep the others from it.
    std::size_t m_turn = 0;
};

} // namespace nookle
