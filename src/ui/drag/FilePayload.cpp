#include "FilePayload.h"

#include "FileTransfers.h"
#include "FileUrl.h"
#include "MozillaUrl.h"
#include "TextPayload.h"

#include <optional>
#include <utility>

namespace nookle {

namespace {

/// Keys for one file. Each works once, so each receiver that asks gets one of its own.
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
        // Receivers expect the NUL.
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
    // First in the list: a program that understands both cannot tell whether it may open the address. It would not turn
    // to the address when there is no key, either.
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
