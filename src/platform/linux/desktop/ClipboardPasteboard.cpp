#include "ClipboardPasteboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace nookle {

namespace {

inline constexpr int longestSide = 32767;

[[nodiscard]] QClipboard& clipboard()
{
    return *QGuiApplication::clipboard();
}

} // namespace

ClipboardPasteboard::ClipboardPasteboard(ImageConverter& converter)
    : m_converter(converter)
{
    connect(&clipboard(), &QClipboard::dataChanged, this, [this] { m_conversion.reset(); });
}

void ClipboardPasteboard::write(std::unique_ptr<QMimeData> data)
{
    clipboard().setMimeData(data.release());
}

void ClipboardPasteboard::clear()
{
    m_conversion.reset();
    clipboard().clear();
}

void ClipboardPasteboard::writeFile(const QUrl& file)
{
    auto data = std::make_unique<QMimeData>();
    data->setUrls({ file });
    write(std::move(data));
}

void ClipboardPasteboard::writeText(const QString& text)
{
    auto data = std::make_unique<QMimeData>();
    data->setText(text);
    write(std::move(data));
}

void ClipboardPasteboard::writeLink(const QString& address)
{
    auto data = std::make_unique<QMimeData>();
    // The toolkit's URLs would rewrite it.
    data->setData(QStringLiteral("text/uri-list"), address.toUtf8() + "\r\n");
    data->setText(address);
    write(std::move(data));
}

void ClipboardPasteboard::writeImage(const QUrl& file)
{
    m_conversion = m_converter.convertToPng(file, longestSide, [this](const std::optional<QByteArray>& png) {
        if (!png)
            return;
        auto data = std::make_unique<QMimeData>();
        data->setData(QStringLiteral("image/png"), *png);
        write(std::move(data));
    });
}

} // namespace nookle
