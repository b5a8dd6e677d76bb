#pragma once

#include "DropPayload.h"

#include <QString>
#include <QStringList>
#include <QUrl>

#include <memory>

namespace nookle {

/// The clipboard and the selection. Main thread only.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    /// The present content, never null. Read it at once: it is valid only in this turn of the event loop.
    [[nodiscard]] virtual std::unique_ptr<DropPayload> contents() const = 0;

    /// What the user selected last, in any program. Never null, and valid as long as `contents`.
    [[nodiscard]] virtual std::unique_ptr<DropPayload> selection() const = 0;

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
