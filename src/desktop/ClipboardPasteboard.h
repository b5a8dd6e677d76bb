#pragma once

#include "ImageConverter.h"
#include "Pasteboard.h"

#include <QObject>

#include <memory>

class QMimeData;

namespace nookle {

/// The desktop's clipboard, through the toolkit. An image arrives there some time after `writeImage`, because another
/// process decodes it first. It does not arrive if something else is copied meanwhile, in this program or another one.
class ClipboardPasteboard final : public QObject, public Pasteboard {
    Q_OBJECT

public:
    /// `converter` must outlive the pasteboard.
    explicit ClipboardPasteboard(ImageConverter& converter);

    [[nodiscard]] std::unique_ptr<DropPayload> contents() const override;
    void clear() override;
    void writeFile(const QUrl& file) override;
    void writeText(const QString& text) override;
    void writeLink(const QString& address) override;
    void writeAddresses(const QStringList& addresses, const QString& text) override;
    void writeImage(const QUrl& file) override;

private:
    void write(std::unique_ptr<QMimeData> data);

    ImageConverter& m_converter;
    std::unique_ptr<Cancellable> m_conversion;
};

} // namespace nookle
