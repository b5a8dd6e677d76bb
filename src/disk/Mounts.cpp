#include "Mounts.h"

#include "FilePlaces.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <utility>

namespace nookle {

Mounts::Mounts(QByteArray home, QByteArray mountInfo)
    : m_home(std::move(home))
    , m_list(::open(mountInfo.constData(), O_RDONLY | O_CLOEXEC))
{
}

std::shared_ptr<const MountTable> Mounts::table()
{
    const std::lock_guard lock(m_mutex);
    // Check before reading: a change during the reading is then noticed by the next call.
    if (hasChanged() || !m_table) {
        auto table = std::make_shared<MountTable>(MountTable::parse(readAll()));
        table->setOwn(FilePlaces(table).mountPointOf(m_home));
        m_table = std::move(table);
    }
    return m_table;
}

// The kernel reports each change once, as an error condition of the file.
bool Mounts::hasChanged() const
{
    pollfd list{ m_list.get(), POLLPRI, 0 };
    return ::poll(&list, 1, 0) > 0 && (list.revents & (POLLERR | POLLPRI)) != 0;
}

QByteArray Mounts::readAll() const
{
    constexpr qsizetype step = 16384;
    QByteArray content;
    QByteArray part(step, Qt::Uninitialized);
    ssize_t length = 0;
    while ((length = ::pread(m_list.get(), part.data(), static_cast<size_t>(step), content.size())) > 0)
        content.append(part.constData(), static_cast<qsizetype>(length));
    return content;
}

} // namespace nookle
