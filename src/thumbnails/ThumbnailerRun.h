#pragma once

#include "ThumbnailMaker.h"
#include "ThumbnailerEntry.h"

#include <QTemporaryDir>

#include <memory>

class QProcess;

namespace nookle {

class MainQueue;

/// A thumbnailer program at work on one file. Destroying it ends the program.
class ThumbnailerRun final {
public:
    /// Null when the file cannot be read or the command line is none.
    [[nodiscard]] static std::unique_ptr<ThumbnailerRun> tryStart(MainQueue& queue, const ThumbnailerEntry& entry,
                                                                  const ThumbnailMaker::Wanted& wanted, double timeout,
                                                                  ThumbnailMaker::Completion completion);
    ~ThumbnailerRun();
    ThumbnailerRun(const ThumbnailerRun&) = delete;
    ThumbnailerRun& operator=(const ThumbnailerRun&) = delete;

private:
    ThumbnailerRun(MainQueue& queue, ThumbnailMaker::Completion completion);

    void start(const QStringList& command, const RegularFile& inputArguments, double timeout);
    void takeOutput();
    void finish(std::optional<ThumbnailMaker::Made> made);

    MainQueue& m_queue;
    ThumbnailMaker::Completion m_completion;
    /// What the program may write to.
    QTemporaryDir m_output;
    std::unique_ptr<QProcess> m_process;
    /// The end of its time, or of the work that is done.
    std::unique_ptr<Cancellable> m_limit;
};

} // namespace nookle
