#pragma once

#include "MainQueue.h"

#include <QList>
#include <QUrl>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace nookle {

/// Waits for the files that the source of a drop saves into a folder. Main thread only.
class SavedFiles final {
public:
    /// Calls `arrived` once, with all files in the folder, sorted by name, when the folder has stopped changing. If the
    /// folder is still empty after a minute, removes it and calls `arrived` with an empty list.
    SavedFiles(const QUrl& folder, MainQueue& queue, std::function<void(QList<QUrl>)> arrived);
    /// Removes the folder if no file has arrived.
    ~SavedFiles();
    SavedFiles(const SavedFiles&) = delete;
    SavedFiles& operator=(const SavedFiles&) = delete;

    /// Whether `arrived` has been called.
    [[nodiscard]] bool isDone() const { return !m_timer; }

private:
    /// The size of each file, by its name.
    using Listing = std::map<std::string, std::uintmax_t>;

    [[nodiscard]] Listing list() const;
    void removeEmptyFolder() const;
    void look();
    void finish(const Listing& files);

    QUrl m_folder;
    std::function<void(QList<QUrl>)> m_arrived;
    Listing m_last;
    int m_looks = 0;
    std::unique_ptr<Cancellable> m_timer;
};

} // namespace nookle
