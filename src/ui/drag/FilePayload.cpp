#include "FilePayload.h"

#include "FileTransfers.h"
#include "FileUrl.h"
#include "MozillaUrl.h"
#include "TextPayload.h"

#include <optional>
#include <utility>

namespace nookle {

namespace {

/// Handing files over takes a call to the service for each few of them, while the receiver waits for the key.
inline constexpr qsizetype mostFilesForKey = 1000;

/// Makes keys for files. A key works only once, so each request gets a new one.
class TransferKeys {
public:
    TransferKeys(QByteArray first, QList<QUrl> files, FileTransfers& transfers)
        : m_next(std::move(first))
        , m_files(std::move(files))
        , m_transfers(&transfers)
    {
    }

    [[nodiscard]] std::optional<QByteArray> operator()()
    {
        const auto key = m_next ? std::exchange(m_next, std::nullopt) : m_transfers->begin();
        if (!key || !m_transfers->add(*key, m_files))
            return std::nullopt;
        // Receivers expect a NUL at the end.
        return QByteArray(*key + '\0');
    }

private:
    std::optional<QByteArray> m_next;
    QList<QUrl> m_files;
    FileTransfers* m_transfers;
};

[[nodiscard]] QByteArray uriList(const QList<QUrl>& files)
{
    QByteArray list;
    for (const QUrl& file : files)
        list += file.toEncoded() + "\r\n";
    return list;
}

} // namespace

void addFiles(DragPayload& payload, const QList<QUrl>& files, FileTransfers& transfers)
{
    // The key comes first in the list, because a program that understands both formats does not know whether it may
    // open the addresses. It is offered only if there is a key, because such a program would not fall back to them.
    const bool canHaveKey = files.size() <= mostFilesForKey && transfers.canHandOver(files);
    if (auto key = canHaveKey ? transfers.begin() : std::nullopt)
        payload.add(QStringLiteral("application/vnd.portal.filetransfer"),
                    TransferKeys(std::move(*key), files, transfers));
    payload.add(QStringLiteral("text/uri-list"), [files] { return uriList(files); });
}

DragPayload filePayload(const QUrl& file, FileTransfers& transfers)
{
    const QString address = QString::fromLatin1(file.toEncoded());
    DragPayload payload;
    addFiles(payload, { file }, transfers);
    payload.add(QStringLiteral("text/x-moz-url"), [=] { return mozillaUrl(address, lastPathComponent(file)); });
    addText(payload, address);
    return payload;
}

} // namespace nookle
