#pragma once

#include "ImageConverter.h"
#include "Pasteboard.h"

#include <QObject>

#include <memory>

class QMimeData;

namespace nookle {

/// The desktop's clipboard, through the toolkit. An image gets there some time after it was written, because it is
/// decoded elsewhere first; not at all if something else is copied meanwhile, here or in another program.
class ClipboardPasteboard final : public QObject, public Pasteboard {
    Q_OBJECT

public:
    /// `converter` must outlive the pasteboard.
    explicit ClipboardPasteboard(ImageConverter& converter);

    void clear() override;
    void writeFile(const QUrl& file) override;
    void writeText(const QString& text) override;
    void writeLink(const QString& address) override;
    void writeImage(const QUrl& file) override;

private:
    void write(std::unique_ptr<QMimeData> data);

    ImageConverter& m_converter;
    std::unique_ptr<Cancellable> m_conversion;
};

} // namespace nookle
