#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <functional>
#include <memory>

namespace nookle {

/// What the clipboard or the selection holds at present. Another program has to deliver it, so each answer comes later,
/// never within the call that asked for it. Ask one question at a time. Destroying this object ends the question; the
/// answer to a question may do that. Main thread only.
class ClipboardContent {
public:
    using Formats = std::function<void(const QStringList& formats)>;
    using Bytes = std::function<void(const QByteArray& bytes)>;

    virtual ~ClipboardContent() = default;

    /// Asks for the names of the formats, in the owner's order. There are none when nobody answers.
    virtual void askFormats(Formats answer) = 0;

    /// Asks for the bytes in `format`. Empty when the owner does not deliver them within the limits of size and time,
    /// which are for all questions together.
    virtual void askData(const QString& format, Bytes answer) = 0;
};

/// The clipboard and the selection. Main thread only.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// What was copied last, in any program; never null.
    [[nodiscard]] virtual std::unique_ptr<ClipboardContent> contents() = 0;

    /// What the user selected last, in any program; never null.
    [[nodiscard]] virtual std::unique_ptr<ClipboardContent> selection() = 0;

    /// Why that cannot be read on this desktop, as a text for the user. Empty where it can.
    [[nodiscard]] virtual QString selectionObstacle() const = 0;

    /// Called when one of the operations below has failed, with the reason for the user. Set by the owner.
    std::function<void(const QString& reason)> onFailed = [](const QString& /*reason*/) {};

    // The operations below replace the content of the clipboard.

    virtual void clear() = 0;
    virtual void writeFile(const QUrl& file) = 0;
    virtual void writeText(const QString& text) = 0;

    /// Writes the address both as an address and as text.
    virtual void writeLink(const QString& address) = 0;

    /// Writes the addresses of files or pages as a list, and `text` as text if it is not empty.
    virtual void writeAddresses(const QStringList& addresses, const QString& text) = 0;

    /// Writes the picture in the image file. Writes nothing when the file holds no readable image.
    virtual void writeImage(const QUrl& file) = 0;
};

} // namespace nookle
