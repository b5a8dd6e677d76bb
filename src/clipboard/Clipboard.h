#pragma once

#include <QString>

#include <functional>
#include <memory>

class QMimeData;

namespace nookle {

class ClipboardContent;

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

    /// The present content, never null. It has no formats when there is none, or this program may not read it.
    [[nodiscard]] virtual std::unique_ptr<ClipboardContent> content(Content which) = 0;

    /// Why what is selected in other programs cannot be read here, as a text for the user. Empty where it can.
    [[nodiscard]] virtual QString selectionObstacle() const { return {}; }

    /// Replaces what was copied; null empties it.
    virtual void copy(std::unique_ptr<QMimeData> data) = 0;

    /// Called when something else was copied, in this program or another one. Set by the owner.
    std::function<void()> onCopied;

    /// Called when something could not be copied, with the reason for the user. Set by the owner.
    std::function<void(const QString& reason)> onCopyFailed;
};

} // namespace nookle
