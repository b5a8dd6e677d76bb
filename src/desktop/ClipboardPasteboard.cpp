#include "ClipboardPasteboard.h"

#include "ClipboardPayload.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QStringList>
#include <QVariant>

#include <utility>

namespace nookle {

namespace {

inline constexpr int longestSide = 32767;

[[nodiscard]] QClipboard& clipboard()
{
    return *QGuiApplication::clipboard();
}

/// A link with its original text. The toolkit's own class would convert it to a QUrl, which changes some addresses.
class LinkData final : public QMimeData {
public:
    explicit LinkData(QString address)
        : m_address(std::move(address))
    {
    }

    [[nodiscard]] QStringList formats() const override { return { addresses(), text() }; }
    [[nodiscard]] bool hasFormat(const QString& format) const override { return formats().contains(format); }

protected:
    [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType /*preferredType*/) const override
    {
        if (format == addresses())
            return QByteArray(m_address.toUtf8() + "\r\n");
        return format == text() ? QVariant(m_address) : QVariant();
    }

private:
    [[nodiscard]] static QString addresses() { return QStringLiteral("text/uri-list"); }
    [[nodiscard]] static QString text() { return QStringLiteral("text/plain"); }

    QString m_address;
};

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

std::unique_ptr<DropPayload> ClipboardPasteboard::contents() const
{
    return std::make_unique<ClipboardPayload>();
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
    write(std::make_unique<LinkData>(address));
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
