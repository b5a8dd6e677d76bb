#pragma once

#include "Pasteboard.h"

namespace nookle {

/// The desktop's clipboard, through the toolkit.
class ClipboardPasteboard final : public Pasteboard {
public:
    void clear() override;
    void writeFile(const QUrl& file) override;
    void writeText(const QString& text) override;
    void writeLink(const QString& address) override;
    void writeImage(const QUrl& file) override;
};

} // namespace nookle
