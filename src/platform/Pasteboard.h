#pragma once

#include <QString>
#include <QUrl>

namespace nookle {

/// The general clipboard. Every operation replaces what it held. Main thread only.
class Pasteboard {
public:
    virtual ~Pasteboard() = default;

    virtual void clear() = 0;
    virtual void writeFile(const QUrl& file) = 0;
    virtual void writeText(const QString& text) = 0;

    /// The address both as an address and as text.
    virtual void writeLink(const QString& address) = 0;

    /// The picture in the image file; writes nothing when the file holds none that can be read.
    virtual void writeImage(const QUrl& file) = 0;
};

} // namespace nookle
