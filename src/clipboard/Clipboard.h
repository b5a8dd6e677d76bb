#pragma once

#include <functional>
#include <memory>

class QMimeData;

namespace nookle {

/// The display server's clipboard and selection. Main thread only.
class Clipboard {
public:
    enum class Content {
        /// What the user copied last.
        copied,
        /// What the user selected last, in any program.
        selected,
    };

    virtual ~Clipboard() = default;

    /// The present content; null when there is none, or this program may not read it. Reading from it waits for the
    /// program that has it. It is valid only in this turn of the event loop.
    [[nodiscard]] virtual const QMimeData* content(Content which) = 0;

    /// Replaces what was copied; null empties it.
    virtual void copy(std::unique_ptr<QMimeData> data) = 0;

    /// Called when something else was copied, in this program or another one. Set by the owner.
    std::function<void()> onCopied;
};

} // namespace nookle
