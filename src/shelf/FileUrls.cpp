#include "FileUrls.h"

#include "FileUrl.h"

namespace nookle {

namespace {

[[nodiscard]] QByteArray key(const QUrl& url)
{
    return standardizedPath(url);
}

} // namespace

QList<QUuid> FileUrls::idsAt(const QUrl& url) const
{
    return m_idsByPath.values(key(url));
}

void FileUrls::insert(const QUuid& id, const QUrl& url)
{
    remove(id);
    m_byId.insert(id, url);
    m_idsByPath.insert(key(url), id);
}

bool FileUrls::remove(const QUuid& id)
{
    const auto entry = m_byId.constFind(id);
    if (entry == m_byId.constEnd())
        return false;
    m_idsByPath.remove(key(*entry), id);
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
        m_idsByPath.insert(key(entry.value()), entry.key());
    return true;
}

} // namespace nookle
