#include "ClipboardPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>

namespace nookle {

namespace {

[[nodiscard]] QClipboard& clipboard()
{
    return *QGuiApplication::clipboard();
}

} // namespace

void ClipboardPasteboard::clear()
{
    clipboard().clear();
}

void ClipboardPasteboard::writeFile(const QUrl& file)
{
    auto data = std::make_unique<QMimeData>();
    data->setUrls({ file });
    clipboard().setMimeData(data.release());
}

void ClipboardPasteboard::writeText(const QString& text)
{
    clipboard().setText(text);
}

void ClipboardPasteboard::writeLink(const QString& address)
{
    auto data = std::make_unique<QMimeData>();
    data->setUrls({ QUrl(address) });
    data->setText(address);
    clipboard().setMimeData(data.release());
}

void ClipboardPasteboard::writeImage(const QUrl& file)
{
    const QImage image(file.toLocalFile());
    if (!image.isNull())
        clipboard().setImage(image);
}

} // namespace nookle
