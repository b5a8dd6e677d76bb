#pragma once

#include "FileDescriptor.h"
#include "MountTable.h"

#include <QByteArray>

#include <memory>
#include <mutex>

namespace nookle {

/// Provides an up-to-date mount table. Any thread.
class Mounts final {
public:
    /// `home` is the user's home folder, `mountInfo` the path of the kernel's list.
    explicit Mounts(QByteArray home, QByteArray mountInfo = QByteArrayLiteral("/proc/self/mountinfo"));
    Mounts(const Mounts&) = delete;
    Mounts& operator=(const Mounts&) = delete;

    /// The present table. Reads the kernel's list again only after a mount or unmount.
    [[nodiscard]] std::shared_ptr<const MountTable> table();

private:
    [[nodiscard]] bool hasChanged() const;
    [[nodiscard]] QByteArray readAll() const;

    QByteArray m_home;
    std::mutex m_mutex;
    FileDescriptor m_list;
    std::shared_ptr<const MountTable> m_table;
};

} // namespace nookle
