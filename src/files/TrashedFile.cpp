#include "TrashedFile.h"

#include "FolderEntries.h"
#include "RegularFile.h"

#include <QList>

#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cstring>

namespace nookle {

namespace {

inline constexpr const char* infoSuffix = ".trashinfo";

/// What follows `key` in a note; empty if it is not there.
[[nodiscard]] QByteArray valueOf(const QByteArray& note, QByteArrayView key)
{
    for (const QByteArray& line : note.split('\n')) {
        if (line.startsWith(key))
            return line.mid(key.size());
    }
    return {};
}

[[nodiscard]] QByteArray readNote(const QByteArray& path)
{
    // A path has 4096 bytes at most, and percent-encoding makes three of each.
    std::array<char, 16384> text{};
    const auto file = RegularFile::open(path, RegularFile::Links::refuse);
    const ssize_t length = file ? ::read(file->descriptor.get(), text.data(), text.size()) : 0;
    return length > 0 ? QByteArray(text.data(), length) : QByteArray();
}

/// Outside of the user's own volume, notes hold the path below the top folder of the volume.
[[nodiscard]] bool namesPath(const QByteArray& noted, const QByteArray& original)
{
    if (noted.startsWith('/'))
        return noted == original;
    return !noted.isEmpty() && noted.size() < original.size() && original.endsWith(noted)
        && original.at(original.size() - noted.size() - 1) == '/';
}

[[nodiscard]] bool exists(const QByteArray& path)
{
    struct stat status {};
    return ::lstat(path.constData(), &status) == 0;
}

} // namespace

std::optional<TrashedFile> TrashedFile::find(const QByteArray& files, const QByteArray& original)
{
    const QByteArray infoFolder = entryPath(parentFolder(files), "info");
    const auto notes = FolderEntries::tryOpen(infoFolder, FolderEntries::Links::follow);
    if (!notes)
        return std::nullopt;
    constexpr qsizetype keptOfLongNames = 32;
    const QByteArray name = original.mid(original.lastIndexOf('/') + 1);
    // A second file of the same name gets a number before its extension.
    const QByteArray beginning = name.split('.').constFirst().left(keptOfLongNames);

    std::optional<TrashedFile> newest;
    while (const dirent* entry = notes->next()) {
        const QByteArray noteName(entry->d_name);
        if (!noteName.startsWith(beginning) || !noteName.endsWith(infoSuffix))
            continue;
        const QByteArray note = readNote(entryPath(infoFolder, noteName));
        if (!namesPath(QByteArray::fromPercentEncoding(valueOf(note, "Path=")), original))
            continue;
        const QByteArray trashedName = noteName.left(noteName.size() - qsizetype(std::strlen(infoSuffix)));
        TrashedFile found{ entryPath(files, trashedName), entryPath(infoFolder, noteName),
                           valueOf(note, "DeletionDate=") };
        if (exists(found.path) && (!newest || newest->deletionDate < found.deletionDate))
            newest = found;
    }
    return newest;
}

} // namespace nookle
