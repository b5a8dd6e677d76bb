#pragma once

#include "ThumbnailMaker.h"
#include "ThumbnailerEntry.h"

#include <QTemporaryDir>

#include <memory>

class QProcess;

namespace nookle {

class MainQueue;

/// Runs a thumbnailer program for one file. Destroying it kills the program.
class ThumbnailerRun final {
public:
    /// Null when the file cannot be read, the command line is not valid, or the program's output folder cannot be made.
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
    /// The only folder of the host that the program can write to.
    QTemporaryDir m_output;
    std::unique_ptr<QProcess> m_process;
    /// The timeout; after the program's end, the pending call of `takeOutput`.
    std::unique_ptr<Cancellable> m_limit;
};

} // namespace nookle
