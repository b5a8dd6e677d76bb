#pragma once

#include "TemporaryFolder.h"

#include <QByteArray>

namespace nookle {

/// A list of mounts as the kernel writes it: the root folder on a disk, and whatever a test adds. Nothing is mounted.
class MountList final {
public:
    MountList() { add("/", "ext4"); }

    /// A file system of that type at `path`. Those who have read the list do not see it any more.
    void add(const QByteArray& path, const QByteArray& type)
    {
        m_content += "36 27 0:40 / ";
        m_content += path;
        m_content += " rw,relatime shared:1 - ";
        m_content += type;
        m_content += " source rw\n";
        m_folder.makeFile("mounts", m_content);
    }

    /// The path of the list.
    [[nodiscard]] QByteArray path() const { return m_folder.path("mounts"); }
    [[nodiscard]] QByteArray content() const { return m_content; }

private:
    TemporaryFolder m_folder;
    QByteArray m_content;
};

} // namespace nookle
