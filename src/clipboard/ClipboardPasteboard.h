#pragma once

#include "Clipboard.h"
#include "ImageConverter.h"
#include "Pasteboard.h"

#include <memory>

class QMimeData;

namespace nookle {

/// The desktop's clipboard. An image arrives there some time after `writeImage`, because another process decodes it
/// first. It does not arrive if something else is copied meanwhile, in this program or another one.
class ClipboardPasteboard final : public Pasteboard {
public:
    /// Both must outlive the pasteboard.
    ClipboardPasteboard(ImageConverter& converter, Clipboard& clipboard);
    ~ClipboardPasteboard() override;
    ClipboardPasteboard(const ClipboardPasteboard&) = delete;
    ClipboardPasteboard& operator=(const ClipboardPasteboard&) = delete;

    [[nodiscard]] std::unique_ptr<ClipboardContent> contents() override;
    [[nodiscard]] std::unique_ptr<ClipboardContent> selection() override;
    [[nodiscard]] QString selectionObstacle() const override;
    void clear() override;
    void writeFile(const QUrl& file) override;
    void writeText(const QString& text) override;
    void writeLink(const QString& address) override;
    void writeAddresses(const QStringList& addresses, const QString& text) override;
    void writeImage(const QUrl& file) override;

private:
    void write(std::unique_ptr<QMimeData> data);

    ImageConverter& m_converter;
    Clipboard& m_clipboard;
    std::unique_ptr<Cancellable> m_conversion;
};

} // namespace nookle
