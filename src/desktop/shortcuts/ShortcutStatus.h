#pragma once

#include <QKeyCombination>
#include <QString>

#include <optional>

namespace nookle {

/// What became of the shortcuts that a service was asked for.
struct ShortcutStatus {
    enum class State {
        /// The service, or the user, has not answered yet.
        asking,
        bound,
        /// The service works, but has bound nothing.
        unbound,
        /// The user does not want the shortcuts, as far as the service tells.
        declined,
        /// The service does not run, or is of no use to this program.
        absent,
    };

    State state = State::asking;
    /// The keys of the first shortcut, in the desktop's words. Empty unless bound, and where the service does not tell.
    QString keys;
    /// Why `keys` is empty, for the user.
    QString obstacle;
    /// `keys` for the toolkit, where they are one combination that it knows.
    std::optional<QKeyCombination> combination = std::nullopt;

    friend bool operator==(const ShortcutStatus&, const ShortcutStatus&) = default;
};

} // namespace nookle
