#include "FilePayload.h"

#include "FileTransfers.h"
#include "FileUrl.h"
#include "MozillaUrl.h"
#include "TextPayload.h"

#include <optional>
#include <utility>

namespace nookle {

namespace {

/// Makes keys for one file. A key works only once, so each request gets a new one.
class TransferKeys {
public:
    TransferKeys(QByteArray first, QUrl file, FileTransfers& transfers)
        : m_next(std::move(first))
        , m_file(std::move(file))
        , m_transfers(&transfers)
    {
    }

    [[nodiscard]] std::optional<QByteArray> operator()()
    {
        const auto key = m_next ? std::exchange(m_next, std::nullopt) : m_transfers->begin();
        if (!key || !m_transfers->add(*key, m_file))
            return std::nullopt;
        // Receivers expect a NUL at the end.
        return QByteArray(*key + '\0');
    }

private:
    std::optional<QByteArray> m_next;
    QUrl m_file;
    FileTransfers* m_transfers;
};

} // namespace

DragPayload filePayload(const QUrl& file, FileTransfers& transfers)
{
    const QByteArray address = file.toEncoded();
    DragPayload payload;
    // The key comes first in the list, because a program that understands both formats does not know whether it may
    // open the address. It is offered only if there is a key, because such a program would not fall back to the
    // address.
    if (auto key = transfers.canHandOver(file) ? transfers.begin() : std::nullopt)
        payload.add(QStringLiteral("application/vnd.portal.filetransfer"),
                    TransferKeys(std::move(*key), file, transfers));
    payload.add(QStringLiteral("text/uri-list"), [address] { return QByteArray(address + "\r\n"); });
    payload.add(QStringLiteral("text/x-moz-url"),
                [=] { return mozillaUrl(QString::fromLatin1(address), lastPathComponent(file)); });
    addText(payload, QString::fromLatin1(address));
    return payload;
}

} // namespace nookle
