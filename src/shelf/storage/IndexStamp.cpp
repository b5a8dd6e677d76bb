#include "IndexStamp.h"

#include <QFile>
#include <QHash>

#include <sys/stat.h>

namespace nookle {

IndexStamp::IndexStamp(const QByteArray& path, const QByteArray& bytes)
    : m_state(stateOf(path))
    , m_size(bytes.size())
    , m_hash(qHash(bytes))
{
}

std::optional<IndexStamp::State> IndexStamp::stateOf(const QByteArray& path)
{
    struct stat status {};
    if (::stat(path.constData(), &status) != 0 || !S_ISREG(status.st_mode))
        return {};
    return State{ quint64(status.st_dev), quint64(status.st_ino), qint64(status.st_size), qint64(status.st_mtim.tv_sec),
                  qint64(status.st_mtim.tv_nsec) };
}

bool IndexStamp::isOf(const QByteArray& path) const
{
    const std::optional<State> present = stateOf(path);
    if (!present || present->size != m_size)
        return false;
    if (present == m_state)
        return true;
    QFile file(QFile::decodeName(path));
    return file.open(QIODevice::ReadOnly) && qHash(file.readAll()) == m_hash;
}

} // namespace nookle
