#pragma once

#include <QString>
#include <QUrl>

namespace nookle {

/// The clipboard. Every operation replaces its content. Main thread only.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    virtual void clear() = 0;
    virtual void writeFile(const QUrl& file) = 0;
    virtual void writeText(const QString& text) = 0;

    /// Writes the address both as an address and as text.
    virtual void writeLink(const QString& address) = 0;

    /// Writes the picture in the image file. Writes nothing when the file holds no readable image.
    virtual void writeImage(const QUrl& file) = 0;
};

} // namespace nookle
