#include "FileUrls.h"

#include "FileUrl.h"

namespace nookle {

QList<QUuid> FileUrls::idsAt(const QByteArray& standardizedPath) const
{
    return m_idsByPath.values(standardizedPath);
}

void FileUrls::insert(const QUuid& id, const QUrl& url, const QByteArray& standardizedPath)
{
    remove(id);
    m_byId.insert(id, url);
    m_idsByPath.insert(standardizedPath, id);
}

bool FileUrls::remove(const QUuid& id)
{
    const auto entry = m_byId.constFind(id);
    if (entry == m_byId.constEnd())
        return false;
    m_idsByPath.remove(standardizedPath(*entry), id);
    m_byId.erase(entry);
    return true;
}

bool FileUrls::replaceAll(const QHash<QUuid, QUrl>& byId)
{
    if (m_byId == byId)
        return false;
    m_byId = byId;
    m_idsByPath.clear();
    for (auto entry = byId.constBegin(); entry != byId.constEnd(); ++entry)
        m_idsByPath.insert(standardizedPath(entry.value()), entry.key());
    return true;
}

} // namespace nookle
