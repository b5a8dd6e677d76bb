#include "MountTable.h"

#include "FolderEntries.h"

#include <QList>

#include <algorithm>
#include <array>

namespace nookle {

namespace {

/// The types of file systems on disks and in memory. "fuseblk" is a disk that is served by a program of this computer.
constexpr std::array localTypes{ "apfs",    "bcachefs", "btrfs",    "cgroup", "cgroup2",  "cramfs",  "debugfs",
                                 "devpts",  "devtmpfs", "ecryptfs", "erofs",  "exfat",    "ext2",    "ext3",
                                 "ext4",    "f2fs",     "fuseblk",  "hfs",    "hfsplus",  "iso9660", "jfs",
                                 "minix",   "mqueue",   "msdos",    "nilfs2", "ntfs",     "ntfs3",   "overlay",
                                 "proc",    "ramfs",    "reiserfs", "rootfs", "squashfs", "sysfs",   "tmpfs",
                                 "tracefs", "udf",      "ufs",      "vfat",   "xfs",      "zfs" };

[[nodiscard]] MountTable::Kind kindOf(const QByteArray& type)
{
    if (type == "autofs")
        return MountTable::Kind::automount;
    const bool isLocal = std::find(localTypes.begin(), localTypes.end(), type) != localTypes.end();
    return isLocal ? MountTable::Kind::local : MountTable::Kind::distant;
}

/// In the list, spaces, tabs, line feeds and backslashes are written as a backslash and three octal digits.
[[nodiscard]] QByteArray unescaped(const QByteArray& field)
{
    constexpr qsizetype length = 4;
    constexpr int octal = 8;
    QByteArray path;
    for (qsizetype index = 0; index < field.size(); ++index) {
        bool isNumber = false;
        const uint code = field.at(index) == '\\' ? field.mid(index + 1, length - 1).toUInt(&isNumber, octal) : 0;
        path += isNumber ? static_cast<char>(code) : field.at(index);
        index += isNumber ? length - 1 : 0;
    }
    return path;
}

} // namespace

MountTable MountTable::parse(const QByteArray& mountInfo)
{
    constexpr qsizetype mountPointField = 4;
    MountTable table;
    for (const QByteArray& line : mountInfo.split('\n')) {
        const QList<QByteArray> fields = line.split(' ');
        // There may be optional fields before the hyphen. The type comes after it.
        const qsizetype hyphen = fields.indexOf("-", mountPointField);
        if (hyphen < 0)
            continue;
        const QByteArray mountPoint = unescaped(fields.at(mountPointField));
        // A later mount hides an earlier one at the same place.
        table.m_kinds.insert(mountPoint, kindOf(fields.value(hyphen + 1)));
        table.m_foldersOfMounts.insert(parentFolder(mountPoint));
    }
    table.setOwn("/");
    return table;
}

std::optional<MountTable::Kind> MountTable::at(const QByteArray& path) const
{
    const auto kind = m_kinds.constFind(path);
    return kind == m_kinds.cend() ? std::nullopt : std::optional(*kind);
}

QByteArray MountTable::mountPointOf(QByteArray path) const
{
    while (path.size() > 1 && !m_kinds.contains(path))
        path = parentFolder(path);
    return path;
}

} // namespace nookle
