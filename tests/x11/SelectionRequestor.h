#pragma once

#include "XcbConnection.h"

#include <QByteArray>

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace nookle {

/// Another program that asks for a selection, on a connection of its own. `work` lets it do what is to be done; call
/// it until there is an answer.
class SelectionRequestor {
public:
    explicit SelectionRequestor(QByteArray selection);
    ~SelectionRequestor();

    struct Answer {
        bool isRefused = false;
        /// All of it has come.
        bool isWhole = false;
        std::uint32_t type = 0;
        QByteArray bytes;
        /// How many pieces it came in; 0 when it came at once.
        int pieces = 0;

        [[nodiscard]] std::vector<std::uint32_t> numbers() const;
    };

    /// Asks for a target, to be delivered in the property of that name.
    void ask(const QByteArray& target, const QByteArray& property = "NOOKLE_TEST",
             std::uint32_t time = XCB_CURRENT_TIME);
    /// Asks for several targets at once, each to be delivered in a property of its own name.
    void askForAll(const std::vector<QByteArray>& targets);

    void work();

    /// Nothing until the owner has answered.
    [[nodiscard]] std::optional<Answer> answer(const QByteArray& property = "NOOKLE_TEST");
    /// What a property of its window holds.
    [[nodiscard]] QByteArray read(const QByteArray& property);
    /// How many answers there were in all.
    [[nodiscard]] int answers() const { return m_notifications; }

    /// What the last answer's event carried beyond its fields.
    [[nodiscard]] QByteArray rest() const { return m_rest; }

    /// Takes no more than that many pieces.
    void stopAfter(int pieces) { m_mostPieces = pieces; }
    /// Forgets what it got, and takes every piece from here on.
    void forget();
    /// Passes itself off as the window manager.
    void beWindowManager();
    /// Ends at once, with its windows.
    void die() { m_connection.reset(); }

    [[nodiscard]] std::uint32_t atom(const QByteArray& name);

private:
    void handle(const xcb_generic_event_t& event);
    void take(std::uint32_t property);

    XcbConnection m_connection;
    QByteArray m_selection;
    std::uint32_t m_window = 0;
    std::map<std::uint32_t, Answer> m_answers;
    /// The properties that bring pieces.
    std::map<std::uint32_t, bool> m_isInPieces;
    int m_notifications = 0;
    QByteArray m_rest;
    int m_mostPieces = 1'000'000;
};

} // namespace nookle
