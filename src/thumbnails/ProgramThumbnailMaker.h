#pragma once

#include "ThumbnailMaker.h"
#include "ThumbnailerEntry.h"

#include <QList>
#include <QStringList>

#include <optional>

namespace nookle {

class MainQueue;

/// The programs that are registered as thumbnailers. Each runs in a sandbox in which there is nothing of the user's but
/// the one file, and with limits; where no sandbox can be had, none runs.
class ProgramThumbnailMaker final : public ThumbnailMaker {
public:
    /// In seconds.
    inline static constexpr double timeout = 10;

    /// Looks into `folders`, of which the first goes before the others, when the first thumbnail is wanted.
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
