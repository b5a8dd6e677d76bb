#pragma once

#include "ThumbnailMaker.h"
#include "ThumbnailerEntry.h"

#include <QList>
#include <QStringList>

#include <optional>

namespace nookle {

class MainQueue;

/// Makes thumbnails with the programs that are registered as thumbnailers. Each runs in a sandbox that contains no file
/// of the user but the one to show, and with limits on its resources. Without a sandbox no program is run.
class ProgramThumbnailMaker final : public ThumbnailMaker {
public:
    /// In seconds.
    inline static constexpr double timeout = 10;

    /// Reads the registrations in `folders` at the first request. A registration in an earlier folder hides one with
    /// the same file name in a later folder.
    ProgramThumbnailMaker(MainQueue& queue, QStringList folders);

    std::unique_ptr<Cancellable> make(const Wanted& wanted, Completion completion) override;

private:
    [[nodiscard]] const ThumbnailerEntry* entryFor(const QString& mimeType);
    void loadEntries();

    MainQueue& m_queue;
    QStringList m_folders;
    std::optional<QList<ThumbnailerEntry>> m_entries;
};

} // namespace nookle
