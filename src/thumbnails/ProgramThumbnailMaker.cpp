#include "ProgramThumbnailMaker.h"

#include "Sandbox.h"
#include "ThumbnailerRun.h"

#include <QDir>
#include <QFile>
#include <QMimeDatabase>
#include <QSet>

#include <algorithm>
#include <utility>

namespace nookle {

ProgramThumbnailMaker::ProgramThumbnailMaker(MainQueue& queue, QStringList folders)
    : m_queue(queue)
    , m_folders(std::move(folders))
{
}

std::unique_ptr<Cancellable> ProgramThumbnailMaker::make(const Wanted& wanted, Completion completion)
{
    const ThumbnailerEntry* const entry = entryFor(wanted.mimeType);
    if (!entry || sandboxProgram().isEmpty())
        return nullptr;
    return Cancellable::keeping<ThumbnailerRun>(
        ThumbnailerRun::tryStart(m_queue, *entry, wanted, timeout, std::move(completion)));
}

const ThumbnailerEntry* ProgramThumbnailMaker::entryFor(const QString& mimeType)
{
    if (!m_entries)
        loadEntries();
    const QMimeType type = QMimeDatabase().mimeTypeForName(mimeType);
    const QStringList names = QStringList{ mimeType } + type.aliases();
    const auto makes = [&names](const ThumbnailerEntry& entry) {
        return std::any_of(names.begin(), names.end(),
                           [&entry](const QString& name) { return entry.mimeTypes.contains(name); });
    };
    const auto found = std::find_if(m_entries->cbegin(), m_entries->cend(), makes);
    return found == m_entries->cend() ? nullptr : &*found;
}

void ProgramThumbnailMaker::loadEntries()
{
    m_entries.emplace();
    QSet<QString> seen;
    for (const QString& folder : std::as_const(m_folders)) {
        const QDir directory(folder);
        const QStringList names = directory.entryList({ QStringLiteral("*.thumbnailer") }, QDir::Files, QDir::Name);
        for (const QString& name : names) {
            // A file with the same name in an earlier folder hides this one, even if the earlier one is not usable.
            if (seen.contains(name))
                continue;
            seen.insert(name);
            QFile file(directory.filePath(name));
            const auto entry = file.open(QIODevice::ReadOnly) ? ThumbnailerEntry::parse(file.readAll()) : std::nullopt;
            if (entry && entry->isInstalled())
                m_entries->append(*entry);
        }
    }
}

} // namespace nookle
