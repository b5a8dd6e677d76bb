#include "MimeDropItem.h"

#include <QMimeData>
#include <QStringDecoder>
#include <QUrl>

namespace nookle {

namespace {

[[nodiscard]] QString uriListType()
{
    return QStringLiteral("text/uri-list");
}

/// One address of a drop, or its text.
class MimeDropItem final : public DropItem {
public:
    static std::unique_ptr<DropItem> fromAddress(const QString& address, const std::optional<QString>& title)
    {
        auto item = std::make_unique<MimeDropItem>();
        item->m_url = address;
        item->m_title = title;
        return item;
    }

    static std::unique_ptr<DropItem> fromText(const QString& text)
    {
        auto item = std::make_unique<MimeDropItem>();
        item->m_text = text;
        return item;
    }

    bool hasFileURL() const override { return m_url && m_url->startsWith(QLatin1String("file:"), Qt::CaseInsensitive); }
    bool hasImage() const override { return false; }
    bool hasURL() const override { return m_url.has_value(); }
    bool hasText() const override { return m_text.has_value(); }

    std::optional<QString> loadURL() const override { return m_url; }
    std::optional<QUrl> loadImageCopy() const override { return std::nullopt; }
    std::optional<QString> loadURLTitle() const override { return m_title; }
    std::optional<QString> loadText() const override { return m_text; }

private:
    std::optional<QString> m_url;
    std::optional<QString> m_title;
    std::optional<QString> m_text;
};

/// The lines of a URI list without its comments; sources end them with or without a carriage return.
[[nodiscard]] QStringList addresses(const QByteArray& uriList)
{
    QStringList found;
    for (const QByteArray& each : uriList.split('\n')) {
        QByteArray line = each.trimmed();
        while (line.endsWith('\0'))
            line.chop(1);
        if (!line.isEmpty() && !line.startsWith('#'))
            found.append(QString::fromUtf8(line));
    }
    return found;
}

[[nodiscard]] std::optional<QString> trimmedTitle(const QString& title)
{
    const QString trimmed = title.trimmed();
    return trimmed.isEmpty() ? std::nullopt : std::optional(trimmed);
}

/// The title of a dragged link: the second line of one type, or the whole of another, which is UTF-16 without a mark.
[[nodiscard]] std::optional<QString> linkTitle(const QMimeData& data)
{
    const QList<QByteArray> lines = data.data(QStringLiteral("_NETSCAPE_URL")).split('\n');
    if (lines.size() > 1) {
        if (auto title = trimmedTitle(QString::fromUtf8(lines[1])))
            return title;
    }
    QStringDecoder decoder(QStringDecoder::Utf16LE);
    return trimmedTitle(decoder(data.data(QStringLiteral("text/x-moz-url-desc"))));
}

[[nodiscard]] QString text(const QMimeData& data)
{
    const QByteArray utf8 = data.data(QStringLiteral("text/plain;charset=utf-8"));
    return utf8.isEmpty() ? data.text() : QString::fromUtf8(utf8);
}

} // namespace

bool offersDropItems(const QMimeData& data)
{
    return data.hasFormat(uriListType()) || data.hasText();
}

std::vector<std::unique_ptr<DropItem>> dropItems(const QMimeData& data)
{
    std::vector<std::unique_ptr<DropItem>> items;
    const QStringList uris = addresses(data.data(uriListType()));
    // A title names one link only.
    const auto title = uris.size() == 1 ? linkTitle(data) : std::nullopt;
    for (const QString& address : uris)
        items.push_back(MimeDropItem::fromAddress(address, title));
    if (!items.empty())
        return items;
    if (const QString dropped = text(data); !dropped.isEmpty())
        items.push_back(MimeDropItem::fromText(dropped));
    return items;
}

} // namespace nookle
