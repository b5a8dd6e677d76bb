#include "FilePlaces.h"

#include "FolderEntries.h"

#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace nookle {

namespace {

using Kind = MountTable::Kind;
using Reach = FilePlace::Reach;

/// The kernel's limit on links in one path.
inline constexpr int mostLinks = 40;

[[nodiscard]] std::optional<QByteArray> linkTarget(const QByteArray& path)
{
    std::array<char, PATH_MAX> target{};
    const ssize_t length = ::readlink(path.constData(), target.data(), target.size());
    return length > 0 ? std::optional(QByteArray(target.data(), static_cast<qsizetype>(length))) : std::nullopt;
}

/// Whether accessing something below the folder at `path` would trigger a mount. This check does not.
[[nodiscard]] bool isAutomount(const QByteArray& path)
{
    struct statx status {};
    const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
    return ::statx(AT_FDCWD, path.constData(), flags, STATX_TYPE, &status) == 0
        && (status.stx_attributes & STATX_ATTR_AUTOMOUNT) != 0;
}

} // namespace

FilePlaces::FilePlaces(std::shared_ptr<const MountTable> mounts, Patience patience)
    : m_mounts(std::move(mounts))
    , m_patience(patience)
{
}

FilePlace FilePlaces::placeOf(const QByteArray& path, Links last) const
{
    const qsizetype slash = path.lastIndexOf('/');
    // Does not copy the strings, because thousands of paths may be checked at once.
    const Spot folder = folderSpot(QByteArray::fromRawData(path.constData(), std::max<qsizetype>(slash, 1)));
    const QByteArray name = QByteArray::fromRawData(path.constData() + slash + 1, path.size() - slash - 1);
    int linksLeft = mostLinks;
    const bool isPlainEntry = last == Links::refuse && !folder.holdsMounts && name != "..";
    const Spot spot = isPlainEntry ? folder : walk(folder, name, last, linksLeft);
    if (spot.kind == Kind::automount)
        return { Reach::unmounted, spot.distantMount };
    return { spot.distantMount.isEmpty() ? Reach::here : Reach::distant, spot.distantMount };
}

bool FilePlaces::mayLookAt(const QByteArray& path, Links last) const
{
    const Reach reach = placeOf(path, last).reach;
    return reach == Reach::here || (reach == Reach::distant && m_patience == Patience::endless);
}

QByteArray FilePlaces::mountPointOf(const QByteArray& path) const
{
    return m_mounts->mountPointOf(resolved(path));
}

QByteArray FilePlaces::resolved(const QByteArray& path) const
{
    return folderSpot(path).path;
}

// Caches each folder, because most files share their folders.
FilePlaces::Spot FilePlaces::folderSpot(const QByteArray& path) const
{
    {
        const std::lock_guard lock(m_mutex);
        if (const auto known = m_folders.constFind(path); known != m_folders.cend())
            return *known;
    }
    int linksLeft = mostLinks;
    Spot spot = walk(Spot(), path, Links::follow, linksLeft);
    spot.holdsMounts = m_mounts->hasMountsIn(spot.path);
    const std::lock_guard lock(m_mutex);
    m_folders.insert(QByteArray(path.constData(), path.size()), spot);
    return spot;
}

FilePlaces::Spot FilePlaces::walk(Spot spot, const QByteArray& path, Links last, int& linksLeft) const
{
    qsizetype begin = 0;
    while (begin < path.size()) {
        const qsizetype slash = path.indexOf('/', begin);
        const qsizetype end = slash < 0 ? path.size() : slash;
        const QByteArray name = path.mid(begin, end - begin);
        begin = end + 1;
        if (name.isEmpty() || name == ".")
            continue;
        Spot next = enter(spot, name);
        const bool isLast = begin >= path.size();
        const bool isAsked = mayAsk(next) && !isMountPoint(next.path) && !(isLast && last == Links::refuse);
        if (isAsked && m_patience == Patience::endless && !next.distantMount.isEmpty() && isAutomount(next.path)) {
            next.kind = Kind::automount;
            return next;
        }
        const auto target = isAsked && linksLeft > 0 ? linkTarget(next.path) : std::nullopt;
        if (!target) {
            spot = std::move(next);
            continue;
        }
        --linksLeft;
        spot = walk(target->startsWith('/') ? Spot() : spot, *target, Links::follow, linksLeft);
    }
    return spot;
}

FilePlaces::Spot FilePlaces::enter(const Spot& folder, const QByteArray& name) const
{
    if (name == "..")
        return spotAt(parentFolder(folder.path));
    Spot spot{ entryPath(folder.path, name), folder.kind, folder.distantMount };
    const auto mounted = m_mounts->at(spot.path);
    if (!mounted)
        return spot;
    spot.kind = *mounted;
    if (spot.kind == Kind::own)
        spot.distantMount.clear();
    else if (spot.kind != Kind::local && spot.distantMount.isEmpty())
        spot.distantMount = spot.path;
    return spot;
}

// `path` must contain no links.
FilePlaces::Spot FilePlaces::spotAt(const QByteArray& path) const
{
    Spot spot;
    for (const QByteArray& name : path.split('/')) {
        if (!name.isEmpty())
            spot = enter(spot, name);
    }
    return spot;
}

bool FilePlaces::mayAsk(const Spot& spot) const
{
    return spot.kind != Kind::automount && (spot.distantMount.isEmpty() || m_patience == Patience::endless);
}

} // namespace nookle
