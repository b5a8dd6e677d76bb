#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMultiHash>
#include <QUrl>
#include <QUuid>

namespace nookle {

/// Where the files of the shelf are, by item id, and the way back from a place to the items, without a scan.
class FileUrls {
public:
    [[nodiscard]] const QHash<QUuid, QUrl>& byId() const { return m_byId; }

    /// The items whose file is at `standardizedPath`, in no order.
    [[nodiscard]] QList<QUuid> idsAt(const QByteArray& standardizedPath) const;

    /// `standardizedPath` is that of `url`.
    void insert(const QUuid& id, const QUrl& url, const QByteArray& standardizedPath);

    /// Whether there was anything to remove.
    bool remove(const QUuid& id);

    /// Whether this changed anything.
    bool replaceAll(const QHash<QUuid, QUrl>& byId);

private:
    QHash<QUuid, QUrl> m_byId;
    QMultiHash<QByteArray, QUuid> m_idsByPath;
};

} // namespace nookle
