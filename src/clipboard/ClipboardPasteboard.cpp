#include "ClipboardPasteboard.h"

#include "UriList.h"

#include <QMimeData>
#include <QStringList>
#include <QUrl>
#include <QVariant>

#include <utility>

namespace nookle {

namespace {

inline constexpr int longestSide = 32767;

/// Addresses with their original text, and a text. The toolkit's own class would convert each address to a QUrl, which
/// changes some.
class AddressData final : public QMimeData {
public:
    AddressData(const QStringList& addresses, QString text)
        : m_list(addresses.join(lineEnd()).toUtf8() + "\r\n")
        , m_text(std::move(text))
    {
    }

    [[nodiscard]] QStringList formats() const override
    {
        return m_text.isEmpty() ? QStringList{ addresses() } : QStringList{ addresses(), text() };
    }
    [[nodiscard]] bool hasFormat(const QString& format) const override { return formats().contains(format); }

protected:
    // On Wayland the toolkit asks for addresses in its own type, and hands over what it makes of those.
    [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType preferredType) const override
    {
        if (format == addresses() && preferredType.id() == QMetaType::QVariantList)
            return urls();
        if (format == addresses())
            return m_list;
        return format == text() ? QVariant(m_text) : QVariant();
    }

private:
    [[nodiscard]] static QString addresses() { return QStringLiteral("text/uri-list"); }
    [[nodiscard]] static QString text() { return QStringLiteral("text/plain"); }
    [[nodiscard]] static QString lineEnd() { return QStringLiteral("\r\n"); }

    [[nodiscard]] QVariantList urls() const
    {
        QVariantList urls;
        for (const QString& address : uriListAddresses(m_list))
            urls.append(QUrl::fromEncoded(address.toLatin1()));
        return urls;
    }

    QByteArray m_list;
    QString m_text;
};

} // namespace

ClipboardPasteboard::ClipboardPasteboard(ImageConverter& converter, Clipboard& clipboard)
    : m_converter(converter)
    , m_clipboard(clipboard)
{
    m_clipboard.onCopied = [this] { m_conversion.reset(); };
    m_clipboard.onCopyFailed = [this](const QString& reason) { onFailed(reason); };
}

ClipboardPasteboard::~ClipboardPasteboard()
{
    m_clipboard.onCopied = nullptr;
    m_clipboard.onCopyFailed = nullptr;
}

void ClipboardPasteboard::write(std::unique_ptr<QMimeData> data)
{
    m_clipboard.copy(std::move(data));
}

std::unique_ptr<ClipboardContent> ClipboardPasteboard::contents()
{
    return m_clipboard.content(Clipboard::Content::copied);
}

std::unique_ptr<ClipboardContent> ClipboardPasteboard::selection()
{
    return m_clipboard.content(Clipboard::Content::selected);
}

QString ClipboardPasteboard::selectionObstacle() const
{
    return m_clipboard.selectionObstacle();
}

void ClipboardPasteboard::clear()
{
    m_conversion.reset();
    m_clipboard.copy(nullptr);
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
    writeAddresses({ address }, address);
}

void ClipboardPasteboard::writeAddresses(const QStringList& addresses, const QString& text)
{
    write(std::make_unique<AddressData>(addresses, text));
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
